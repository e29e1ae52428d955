// Load combinations on a big model: 10,000 elements with three design sections each (one of them
// carrying a node's displacements), 20 load cases stored as results, 30 ordinary combinations of
// six lines (every fifth of them takes in an earlier combination) and 10 sorted combinations of
// eight lines, two of each method family. Measures the ordinary and the sorted run apart.

#include "frame/CombServer.h"
#include "frame/Element.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "store/MemResBase.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kElements = 10000;
constexpr int kLoadcases = 20;
constexpr int kOrdCombs = 30;
constexpr int kSortCombs = 10;
constexpr double kSections[] = {0.0, 0.5, 1.0};

// A project with its elements, nodes, combinations and load case results.
std::unique_ptr<kelo::CStructure> MakeProject() {
    auto s = std::make_unique<kelo::CStructure>(2);
    for (int n = 1; n <= kElements + 1; ++n)
        s->AddNode(std::make_unique<kelo::CNode>(n, static_cast<double>(n), 0.0, 0.0));
    for (int e = 1; e <= kElements; ++e) {
        auto element = std::make_unique<kelo::CElement>(e, e, e + 1, 0, 1);
        for (const double x : kSections)
            element->GetDesignSectionList().Emplace(x, 0, x == 0.0 ? e : 0);
        s->AddElement(std::move(element));
    }
    kelo::CMemResBase& store = *s->GetResBasePtr();
    double f[6];
    for (int lc = 1; lc <= kLoadcases; ++lc) {
        s->AddLoadcase(std::make_unique<kelo::CLoadcase>(lc, "LC"));
        for (int e = 1; e <= kElements; ++e) {
            for (int k = 0; k < 3; ++k) {
                for (int i = 0; i < 6; ++i) f[i] = ((lc * 7 + e * 3 + k + i * 5) % 23) - 11.0;
                store.SetForce(1, lc, e, kSections[k], 1, 0, f);
            }
            kelo::CDisplace d(e, lc, 1, f[0] * 1e-3, f[1] * 1e-3, f[2] * 1e-3, 0, 0, 0);
            store.SetDisplace(1, lc, e, &d);
        }
    }
    for (int c = 1; c <= kOrdCombs; ++c) {
        auto* comb = s->AddLoadcomb(std::make_unique<kelo::CLoadcomb>(c, "OC", 1));
        for (int j = 0; j < 6; ++j)
            comb->AddLoadfact((c + j * 3) % kLoadcases + 1, 1, 1.0 + j * 0.1);
        if (c % 5 == 0) comb->AddLoadfact(c - 1, 2, 0.5);
    }
    const int methods[] = {0, 1, 2, 3, 4, 10, 11, 13, 1, 2};
    for (int c = 1; c <= kSortCombs; ++c) {
        auto* comb = s->AddSortComb(std::make_unique<kelo::CSortComb>(c, "SC", 1, methods[c - 1]));
        for (int j = 0; j < 8; ++j)
            comb->AddLoadfact((c * 2 + j) % kLoadcases + 1, 1, j % 2 ? 1.5 : -1.0);
    }
    return s;
}

kelo::CStructure& Project() {
    static std::unique_ptr<kelo::CStructure> project = MakeProject();
    return *project;
}

void BM_OrdinaryCombinations(benchmark::State& state) {
    kelo::CStructure& s = Project();
    for (auto _ : state) {
        kelo::CCombServer server(&s);
        benchmark::DoNotOptimize(server.ProsessOrdCombinations());
    }
    state.SetItemsProcessed(state.iterations() * kElements * 3 * kOrdCombs);
}
BENCHMARK(BM_OrdinaryCombinations)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_SortedCombinations(benchmark::State& state) {
    kelo::CStructure& s = Project();
    for (auto _ : state) {
        kelo::CCombServer server(&s);
        benchmark::DoNotOptimize(server.ProsessSortCombinations());
    }
    state.SetItemsProcessed(state.iterations() * kElements * 3 * kSortCombs);
}
BENCHMARK(BM_SortedCombinations)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

BENCHMARK_MAIN();
