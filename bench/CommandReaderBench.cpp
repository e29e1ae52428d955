// How fast the command reader takes in large files, and how the owned lists bear many objects.

#include "command/StructureCmd.h"
#include "model/Structure.h"
#include "platform/ObList.h"
#include "platform/Text.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>

using namespace kelo;

namespace {

std::string Definitions(int n) {
    std::string text;
    text.reserve(static_cast<std::size_t>(n) * 24);
    for (int i = 0; i < n; ++i) text += Format("P%d=%d.5*2+P%d\n", i, i, i > 0 ? i - 1 : 0);
    return text;
}

std::string IfBlocks(int n) {
    std::string text = "A=1\n";
    text.reserve(static_cast<std::size_t>(n) * 40);
    for (int i = 0; i < n; ++i)
        text += Format("IF A LT %d\nB%d=%d\nELSE\nC=1\nENDIF\n", i % 3, i, i);
    return text;
}

void ReadText(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        CStructure s(2);
        s.CreateDefaultContents(2, 0);
        std::string copy = text;
        std::string log;
        benchmark::DoNotOptimize(s.CommandConvert(&copy, &log, 0));
    }
    state.counters["lines/s"] = benchmark::Counter(static_cast<double>(state.iterations()) *
                                                       static_cast<double>(state.range(0)),
                                                   benchmark::Counter::kIsRate);
}

void BM_Definitions(benchmark::State& state) {
    ReadText(state, Definitions(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_Definitions)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_IfBlocks(benchmark::State& state) {
    ReadText(state, IfBlocks(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_IfBlocks)->Arg(100000)->Unit(benchmark::kMillisecond);

struct Numbered {
    int no;
    double x;
    int KeyNo() const { return no; }
};

// Adds n objects in random order, then looks each up by number.
void BM_ListAddRandomOrder(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    std::vector<int> order(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) order[static_cast<std::size_t>(i)] = i + 1;
    std::shuffle(order.begin(), order.end(), std::mt19937(42));
    for (auto _ : state) {
        CObList<Numbered> list;
        for (int no : order) list.Emplace(Numbered{no, 0.0});
        double sum = 0.0;
        for (const Numbered* p : list) sum += p->x;
        for (int no : order) sum += list.Get(no)->x;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_ListAddRandomOrder)->Arg(100000)->Unit(benchmark::kMillisecond);

// Adds and walks alternately, which puts the list back in order between adds.
void BM_ListAddWalkInterleaved(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        CObList<Numbered> list;
        for (int i = 0; i < n; ++i) {
            list.Emplace(Numbered{n - i, 0.0});
            benchmark::DoNotOptimize(list.First());
        }
    }
}
BENCHMARK(BM_ListAddWalkInterleaved)->Arg(20000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
