// Cost of turning command fields into numbers: a typical expression of a bridge input file, an
// alias lookup in a project with 100,000 definitions, and long flat expressions of growing length
// (the time per character should stay flat).
#include "command/AliasTable.h"
#include "command/Expression.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void BM_TypicalExpression(benchmark::State& state) {
    kelo::CAliasTable aliases;
    aliases.AddUserAlias(42.5, "SPAN");
    aliases.AddUserAlias(1.8, "DEPTH");
    const std::string field = "2*(SPAN+3.5)/4-DEPTH*sin(30)+sqr(2)";
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber(field, value, aliases));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_TypicalExpression);

void BM_PlainNumber(benchmark::State& state) {
    const kelo::CAliasTable aliases;
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber("-1234.5e-2", value, aliases));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_PlainNumber);

kelo::CAliasTable& LargeTable() {
    static kelo::CAliasTable aliases = [] {
        kelo::CAliasTable table;
        for (int i = 0; i < 100000; ++i) table.AddUserAlias(i, "node_" + std::to_string(i));
        return table;
    }();
    return aliases;
}

void BM_AliasLookup100k(benchmark::State& state) {
    const kelo::CAliasTable& aliases = LargeTable();
    int i = 0;
    double value = 0.0;
    std::string names[16];
    for (int k = 0; k < 16; ++k) names[k] = "NODE_" + std::to_string(k * 6151);
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber(names[i++ & 15], value, aliases));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_AliasLookup100k);

void BM_ExpressionOverAliases100k(benchmark::State& state) {
    const kelo::CAliasTable& aliases = LargeTable();
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber("NODE_99999-NODE_12345*2", value, aliases));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_ExpressionOverAliases100k);

void BM_LongSum(benchmark::State& state) {
    const kelo::CAliasTable aliases;
    std::string field = "1";
    for (int i = 1; i < state.range(0); ++i) field += "+1";
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber(field, value, aliases));
        benchmark::DoNotOptimize(value);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<long>(field.size()));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LongSum)->RangeMultiplier(10)->Range(10, 100000)->Complexity();

// Deep nesting is refused at the depth limit; this shows what hostile text costs.
void BM_RefusedDeepNesting(benchmark::State& state) {
    const kelo::CAliasTable aliases;
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::string field = std::string(n, '(') + "1" + std::string(n, ')');
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kelo::GetNumber(field, value, aliases));
        benchmark::DoNotOptimize(value);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<long>(field.size()));
}
BENCHMARK(BM_RefusedDeepNesting)->Arg(1000)->Arg(100000);

} // namespace

BENCHMARK_MAIN();
