# The two commands of the README, and the benchmarks.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all setup configure build test demo bench clean

all: build

setup:
	@bash scripts/setup

configure: setup
	@if [ ! -f $(BUILD)/CMakeCache.txt ]; then cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null; fi

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@scripts/run-tests $(BUILD)

demo: build
	@scripts/with-display scripts/wine-run $(BUILD)/bin/velkan_console_sample.exe
	@scripts/demo $(abspath $(BUILD))

bench: build
	@scripts/with-display scripts/wine-run $(BUILD)/bin/velkan_bench.exe

clean:
	rm -rf $(BUILD)
