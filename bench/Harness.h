#pragma once

// A small timing harness: each case runs a Velkan body and a baseline body
// doing the same work, alternately, several times; the medians are compared.
// Ratios are Velkan time / baseline time, so below 1.0 means Velkan is faster.

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace Bench {

struct Result {
    std::string name;
    double velkanMs;
    double baselineMs;
    double Ratio() const { return baselineMs > 0 ? velkanMs / baselineMs : 0.0; }
};

class Suite {
public:
    explicit Suite(int runs = 9) : m_runs(runs) {}

    // Both bodies must do the same amount of work; each returns a value the
    // harness folds into a checksum so that the optimiser keeps the work.
    void Compare(const std::string& name, const std::function<size_t()>& velkan,
                 const std::function<size_t()>& baseline);

    void Report() const;
    const std::vector<Result>& Results() const { return m_results; }

private:
    double TimeOnce(const std::function<size_t()>& body);

    int m_runs;
    size_t m_sink = 0;
    std::vector<Result> m_results;
};

}  // namespace Bench
