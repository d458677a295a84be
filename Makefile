# The two commands of the README, and the benchmarks.
#
# Two build trees: $(BUILD) for 32-bit x86 (the primary target) and
# $(BUILD)-x64 for x86-64. ARCH=x86 or ARCH=x64 limits build and test to
# one; the default builds and tests both, x86 first. The demo and the
# benchmarks run the x86 build.
# Nested makes (CMake's own) print no directory changes.
MAKEFLAGS += --no-print-directory
BUILD ?= build
JOBS ?= $(shell nproc)
ARCH ?= all

ifeq ($(ARCH),all)
ARCHES := x86 x64
else ifneq ($(filter-out x86 x64,$(ARCH)),)
$(error ARCH must be x86, x64 or all)
else
ARCHES := $(ARCH)
endif

build_dir = $(if $(filter x64,$(1)),$(BUILD)-x64,$(BUILD))
toolchain = cmake/toolchain-$(if $(filter x64,$(1)),x86_64,i686)-mingw.cmake

.PHONY: all setup build test demo bench clean docs

all: build

setup:
	@bash scripts/setup

configure-%: setup
	@if [ ! -f $(call build_dir,$*)/CMakeCache.txt ]; then \
	  cmake -S . -B $(call build_dir,$*) -DCMAKE_TOOLCHAIN_FILE=$(call toolchain,$*) -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null; fi

build-%: configure-%
	@cmake --build $(call build_dir,$*) -j $(JOBS)

test-%: build-%
	@echo "== tests on $*"
	@VELKAN_ARCH=$* scripts/run-tests $(call build_dir,$*)

build: $(addprefix build-,$(ARCHES))

# Each architecture runs to the end; the target fails if either failed.
test:
	@status=0; for a in $(ARCHES); do $(MAKE) --no-print-directory test-$$a || status=1; done; exit $$status

# The demo builds only the library and the samples, not the tests.
demo: configure-x86
	@cmake --build $(BUILD) -j $(JOBS) --target velkan_console_sample velkan_gallery
	@scripts/with-display scripts/wine-run $(BUILD)/bin/velkan_console_sample.exe
	@scripts/demo $(abspath $(BUILD))

bench: build-x86
	@scripts/with-display scripts/wine-run $(BUILD)/bin/velkan_bench.exe

# The API reference from the public headers, in $(BUILD)/docs/html.
docs:
	@scripts/docs $(abspath $(BUILD))/docs

clean:
	rm -rf $(BUILD) $(BUILD)-x64
