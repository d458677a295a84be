#include "Harness.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Bench {

namespace {

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

double TicksPerMs()
{
    LARGE_INTEGER f;
    QueryPerformanceFrequency(&f);
    return static_cast<double>(f.QuadPart) / 1000.0;
}

}  // namespace

double Suite::TimeOnce(const std::function<size_t()>& body)
{
    static const double ticksPerMs = TicksPerMs();
    LARGE_INTEGER start, stop;
    QueryPerformanceCounter(&start);
    m_sink += body();
    QueryPerformanceCounter(&stop);
    return static_cast<double>(stop.QuadPart - start.QuadPart) / ticksPerMs;
}

void Suite::Compare(const std::string& name, const std::function<size_t()>& velkan,
                    const std::function<size_t()>& baseline)
{
    // One warm-up each, then alternate so that drift in machine speed hits
    // both sides alike.
    TimeOnce(velkan);
    TimeOnce(baseline);
    std::vector<double> v, b;
    for (int i = 0; i < m_runs; ++i) {
        v.push_back(TimeOnce(velkan));
        b.push_back(TimeOnce(baseline));
    }
    m_results.push_back({name, Median(v), Median(b)});
}

void Suite::Report() const
{
    std::printf("%-28s %12s %12s %8s\n", "case", "velkan ms", "baseline ms", "ratio");
    double logSum = 0;
    for (const Result& r : m_results) {
        std::printf("%-28s %12.3f %12.3f %8.2f\n", r.name.c_str(), r.velkanMs, r.baselineMs,
                    r.Ratio());
        logSum += std::log(r.Ratio() > 0 ? r.Ratio() : 1.0);
    }
    if (!m_results.empty())
        std::printf("%-28s %12s %12s %8.2f\n", "geometric mean", "", "",
                    std::exp(logSum / static_cast<double>(m_results.size())));
    std::printf("(checksum %u)\n", static_cast<unsigned>(m_sink));
}

}  // namespace Bench
