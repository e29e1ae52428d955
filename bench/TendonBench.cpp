// A long continuous tendon: its path laid onto the elements and its losses worked out, then the
// tendon load on every element. Prints the time of each for a girder of 40 spans of 40 m in
// elements of 2 m (800 elements), one tendon draped over every span and jacked at both ends.
#include "frame/Element.h"
#include "geometry/Tendon.h"
#include "model/Structure.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace kelo;

namespace {

constexpr int kSpans = 40;
constexpr int kPerSpan = 20;
constexpr int kElements = kSpans * kPerSpan;

// The girder and the tendon through the command reader, as a user would type them: in each span
// a parabola from 0 at the supports down to -400 mm at mid-span, in two halves of 20 m with the
// slope 2 x 0.4 / 20 = 0.04 at the supports.
std::string Model() {
    std::string t = "NODE 1 " + std::to_string(kElements + 1) + " 1 0 0 0 2 0 0\n";
    t += "ELEM 1 " + std::to_string(kElements) + " 1 1 2 1\n";
    t += "SECTINS 1 1 35000 0.2 6.0 4.5 8.0 60\n";
    t += "ELSPINS 1 " + std::to_string(kElements) + " 1 1 3 ZDIR\n";
    t += "TENDON 1 POST 1 1 2850 100 40 0\n";
    t += "TENGROUP 1 2\n";
    for (int s = 0; s < kSpans; ++s) {
        const int first = s * kPerSpan + 1, mid = first + kPerSpan / 2;
        t += "TENGEON 1 6 " + std::to_string(first) + " " + std::to_string(mid - 1) +
             " 1 0 -400 -0.04\n";
        t += "TENGEON 1 7 " + std::to_string(mid) + " " + std::to_string(first + kPerSpan - 1) +
             " 1 -400 0 0.04\n";
    }
    t += "TENLOSS 1 0.19 0.0013 6\n";
    t += "TENSTRESS 1 80 80 1\n";
    return t;
}

struct Project {
    Project() : s(2) {
        s.CreateDefaultContents(2, 0);
        std::string text = Model(), log;
        s.CommandConvert(&text, &log, 0);
    }
    CStructure s;
};

void BM_TendonGeometryAndLosses(benchmark::State& state) {
    Project p;
    CTendon* tendon = p.s.GetTendonPtr(1);
    int ok = 0;
    for (auto _ : state) {
        tendon->SetUpdated(0);
        ok = tendon->Update(&p.s);
        benchmark::DoNotOptimize(ok);
    }
    if (!ok) state.SkipWithError("the tendon could not be worked out");
    state.counters["elements"] = kElements;
    state.counters["us_per_element"] = benchmark::Counter(
        kElements, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_TendonGeometryAndLosses)->Unit(benchmark::kMillisecond);

// The restraint forces of the tendon on every element, as the load assembly asks for them.
void BM_TendonLoadOnEveryElement(benchmark::State& state) {
    Project p;
    CTendon* tendon = p.s.GetTendonPtr(1);
    if (!tendon->Update(&p.s)) {
        state.SkipWithError("the tendon could not be worked out");
        return;
    }
    for (CElement* e : *p.s.GetElementList()) e->CalcElementProp(&p.s);
    double F[12];
    for (auto _ : state) {
        double sum = 0.0;
        for (CElement* e : *p.s.GetElementList()) {
            e->FixType(&p.s, 15, 1.0, 0.0, 0.0, 0.0, nullptr, F, 0.0);
            sum += F[2];
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["elements"] = kElements;
}
BENCHMARK(BM_TendonLoadOnEveryElement)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
