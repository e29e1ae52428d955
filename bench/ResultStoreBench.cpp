// Section forces of a big model in the result store: 50,000 elements, 20 load cases and one or
// three design sections per element (1,000,000 or 3,000,000 results). Stores them in the order of
// the section force calculation (load case, element, section), reads them back in that order and in
// the order of the combinations (section by section, all load cases of a section together), and
// writes node displacements in a scrambled node order, as the solver's band order gives them.

#include "model/Displace.h"
#include "store/MemResBase.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr int kElements = 50000;
constexpr int kLoadcases = 20;
constexpr double kSections[] = {0.5, 0.0, 1.0};

std::int64_t Results(int sections) { return std::int64_t{kElements} * kLoadcases * sections; }

void Forces(int lc, int element, int s, double* f) {
    for (int i = 0; i < 6; ++i) f[i] = lc * 1000.0 + element * 0.01 + s + i;
}

void StoreAll(kelo::CMemResBase& store, int sections) {
    double f[6];
    for (int lc = 1; lc <= kLoadcases; ++lc)
        for (int element = 1; element <= kElements; ++element)
            for (int s = 0; s < sections; ++s) {
                Forces(lc, element, s, f);
                store.SetForce(1, lc, element, kSections[s], 1, 0, f);
            }
}

// One filled store at a time, kept for the reading benchmarks of its section count.
kelo::CMemResBase& FilledStore(int sections) {
    static std::unique_ptr<kelo::CMemResBase> store;
    static int filledWith = 0;
    if (!store || filledWith != sections) {
        store.reset();
        store = std::make_unique<kelo::CMemResBase>();
        StoreAll(*store, sections);
        filledWith = sections;
    }
    return *store;
}

void BM_StoreSectionForces(benchmark::State& state) {
    const int sections = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<kelo::CMemResBase>();
        state.ResumeTiming();
        StoreAll(*store, sections);
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * Results(sections));
}
BENCHMARK(BM_StoreSectionForces)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_ReadByLoadcase(benchmark::State& state) {
    const int sections = static_cast<int>(state.range(0));
    kelo::CMemResBase& store = FilledStore(sections);
    for (auto _ : state) {
        double sum = 0.0, f[6];
        int a = 0, b = 0, found = 0;
        for (int lc = 1; lc <= kLoadcases; ++lc)
            for (int element = 1; element <= kElements; ++element)
                for (int s = 0; s < sections; ++s) {
                    found += store.GetForce(1, lc, element, kSections[s], a, b, f);
                    sum += f[1];
                }
        benchmark::DoNotOptimize(sum);
        if (found != Results(sections)) state.SkipWithError("results missing");
    }
    state.SetItemsProcessed(state.iterations() * Results(sections));
}
BENCHMARK(BM_ReadByLoadcase)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ReadBySection(benchmark::State& state) {
    const int sections = static_cast<int>(state.range(0));
    kelo::CMemResBase& store = FilledStore(sections);
    for (auto _ : state) {
        double sum = 0.0, f[6];
        int a = 0, b = 0, found = 0;
        for (int element = 1; element <= kElements; ++element)
            for (int s = 0; s < sections; ++s)
                for (int lc = 1; lc <= kLoadcases; ++lc) {
                    found += store.GetForce(1, lc, element, kSections[s], a, b, f);
                    sum += f[1];
                }
        benchmark::DoNotOptimize(sum);
        if (found != Results(sections)) state.SkipWithError("results missing");
    }
    state.SetItemsProcessed(state.iterations() * Results(sections));
}
BENCHMARK(BM_ReadBySection)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_RetrieveSectionForceLists(benchmark::State& state) {
    const int sections = static_cast<int>(state.range(0));
    kelo::CMemResBase& store = FilledStore(sections);
    std::vector<kelo::CMemResBase::SectionForceRow> rows;
    for (auto _ : state) {
        std::int64_t found = 0;
        for (int element = 1; element <= kElements; ++element)
            for (int s = 0; s < sections; ++s) {
                rows.clear();
                found += store.RetrieveSectionForceList(element, kSections[s], 1, rows);
            }
        if (found != Results(sections)) state.SkipWithError("results missing");
    }
    state.SetItemsProcessed(state.iterations() * Results(sections));
}
BENCHMARK(BM_RetrieveSectionForceLists)
    ->Arg(1)
    ->Arg(3)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_StoreDisplacementsScrambled(benchmark::State& state) {
    std::vector<int> order(kElements);
    std::iota(order.begin(), order.end(), 1);
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<kelo::CMemResBase>();
        state.ResumeTiming();
        for (int lc = 1; lc <= kLoadcases; ++lc)
            for (const int node : order) {
                const kelo::CDisplace d(node, lc, 1, node * 1e-6, 0.0, lc * 1e-3, 0.0, 0.0, 0.0);
                store->SetDisplace(1, lc, node, &d);
            }
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kElements * kLoadcases);
}
BENCHMARK(BM_StoreDisplacementsScrambled)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_DeleteAllResults(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<kelo::CMemResBase>();
        StoreAll(*store, 3);
        state.ResumeTiming();
        store->DeleteAllResults();
    }
    state.SetItemsProcessed(state.iterations() * Results(3));
}
BENCHMARK(BM_DeleteAllResults)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

BENCHMARK_MAIN();
