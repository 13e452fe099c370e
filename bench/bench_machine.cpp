// The machine itself: how far the other rows can be trusted.

#include "bench.h"

namespace {

/// The same arithmetic each time. On a machine that does nothing else the 90th percentile is close to the
/// median.
bench::Result Fixed_Work() {
    constexpr int Steps = 1'000'000;
    volatile unsigned value = 1;
    const auto calculate = [&] {
        for (int i = 0; i < Steps; ++i)
            value = value * 1664525U + 1013904223U;
    };
    return {bench::Time({calculate, 1}), {}};
}

const bench::Register rows[] = {
    bench::Register({"machine: a fixed piece of arithmetic", "us", bench::No_Target(), Fixed_Work}),
};

}  // namespace
