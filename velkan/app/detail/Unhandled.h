#pragma once

#include <exception>

#include "velkan/core/Export.h"

namespace Velkan {
namespace Detail {

// An exception a handler let out at a boundary the system calls (a window
// or dialog procedure, a callback, a worker's entry): traced, then handed
// to the application's OnUnhandledException. e is null for an exception
// that is not a std::exception.
VELKAN_API void ReportUnhandledException(const std::exception* e);

// Runs body; an exception from it is reported and the result of fallback()
// is returned instead.
template <typename Body, typename Fallback>
auto Guarded(Body&& body, Fallback&& fallback) -> decltype(body()) {
    try {
        return body();
    } catch (const std::exception& e) {
        ReportUnhandledException(&e);
    } catch (...) {
        ReportUnhandledException(nullptr);
    }
    return fallback();
}

}  // namespace Detail
}  // namespace Velkan
