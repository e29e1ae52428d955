// The stages of a static analysis on two big models, timed one by one: node ordering, assembly
// (equation table, element records, block sizes, load matrix, stiffness blocks), the solution of
// the banded system, and the results (displacements are written by the solve; reactions and
// section forces after it).
//
// Girder: a continuous beam of 10,000 elements of 1 m on 201 bearings every 50 m, two load cases
// (self weight, and a uniform load on every other span), design sections at 0, 0.5 and 1.
// Building: a 3-D frame of 20 by 10 bays of 6 m and 20 storeys of 3.5 m, 4,851 nodes and 13,220
// elements (columns, beams both ways), fixed at its feet, two load cases (self weight, and wind
// on the columns of one face), design sections at the ends of every element.

#include "frame/Frame.h"
#include "model/Analysis.h"
#include "model/AnalysisRun.h"
#include "model/Model.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

namespace {

using kelo::Format;

struct Project {
    Project() : s(2) { s.CreateDefaultContents(2, 0); }
    void Run(const std::string& commands) {
        std::string text = commands;
        s.CommandConvert(&text, &log, 0);
    }
    void Node(int no, double x, double y, double z) {
        s.AddNode(std::make_unique<kelo::CNode>(no, x, y, z));
    }
    void Elem(int no, int n1, int n2) {
        s.AddElement(std::make_unique<kelo::CElement>(no, n1, n2, 0, 0));
    }
    kelo::CStructure s;
    std::string log;
};

void BuildGirder(Project& p) {
    constexpr int kElements = 10000;
    for (int n = 1; n <= kElements + 1; ++n) p.Node(n, n - 1.0, 0.0, 0.0);
    for (int e = 1; e <= kElements; ++e) p.Elem(e, e, e + 1);
    std::string c = "SECTINS 1 1 35000 0.2 6.0 4.5 8.0 60\r\n";
    c += Format("ELSPINS 1 %d 1 1 3 ZDIR\r\nDESGINS 1 %d 1 0 0.5 1\r\n", kElements, kElements);
    c += Format("BOUNDINS 1 %d 50 0 1 1 1 0 0\r\nBOUNDINS 51 51 1 1 1 1 1 0 0\r\n", kElements + 1);
    c += Format("LOAD 1 1 1 %d 1 ZDIR -25\r\n", kElements);
    for (int span = 0; span < kElements / 50; span += 2)
        c += Format("LOAD 2 3 %d %d 1 ZDIR -20\r\n", span * 50 + 1, span * 50 + 50);
    p.Run(c);
}

void BuildBuilding(Project& p) {
    constexpr int nx = 20, ny = 10, nz = 20;
    constexpr double bay = 6.0, storey = 3.5;
    auto node = [](int i, int j, int k) { return 1 + i + (nx + 1) * j + (nx + 1) * (ny + 1) * k; };
    for (int k = 0; k <= nz; ++k)
        for (int j = 0; j <= ny; ++j)
            for (int i = 0; i <= nx; ++i) p.Node(node(i, j, k), i * bay, j * bay, k * storey);
    int e = 0;
    for (int k = 0; k < nz; ++k)
        for (int j = 0; j <= ny; ++j)
            for (int i = 0; i <= nx; ++i) p.Elem(++e, node(i, j, k), node(i, j, k + 1));
    const int columns = e;
    for (int k = 1; k <= nz; ++k) {
        for (int j = 0; j <= ny; ++j)
            for (int i = 0; i < nx; ++i) p.Elem(++e, node(i, j, k), node(i + 1, j, k));
        for (int j = 0; j < ny; ++j)
            for (int i = 0; i <= nx; ++i) p.Elem(++e, node(i, j, k), node(i, j + 1, k));
    }
    std::string c = "SECTINS 1 1 35000 0.2 0.16 0.00213 0.00361 0.00213\r\n"
                    "SECTINS 2 1 35000 0.2 0.24 0.0072 0.0040 0.0018\r\n";
    c += Format("ELSPINS 1 %d 1 1 3 XDIR\r\n", columns);
    c += Format("ELSPINS %d %d 1 2 3 ZDIR\r\n", columns + 1, e);
    c += Format("DESGINS 1 %d 1 0 1\r\n", e);
    c += Format("BOUNDINS 1 %d 1 1 1 1 1 1 1\r\n", node(nx, ny, 0));
    c += Format("LOAD 1 1 1 %d 1 ZDIR -25\r\n", e);
    // Wind on the columns of the face y = 0, along +Y.
    for (int k = 0; k < nz; ++k)
        c += Format("LOAD 2 3 %d %d 1 YDIR 3\r\n", k * (nx + 1) * (ny + 1) + 1,
                    k * (nx + 1) * (ny + 1) + nx + 1);
    p.Run(c);
}

double Seconds(std::chrono::steady_clock::time_point from) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

void Analyse(benchmark::State& state, void (*build)(Project&), const char* name) {
    for (auto _ : state) {
        state.PauseTiming();
        Project p;
        build(p);
        kelo::CAnalysis analysis(1, name);
        kelo::CModel* model = p.s.GetModelPtr(1);
        kelo::CAnalysisRun run(&p.s, &analysis, model, nullptr);
        run.SetAnType(1);
        run.SetMemResBasePtr(p.s.GetResBasePtr());
        std::string log;
        run.SetLog(&log, &log);
        model->ExpandModel(&p.s, run.GetElementList(), run.GetNodeList());
        for (const kelo::CLoadcase* lc : *p.s.GetLoadcaseList())
            run.GetLoadcaseList().Add(std::make_unique<kelo::CLoadcase>(*lc));
        run.UpdatePointers();
        kelo::CFrame frame(run);
        frame.UpdateElementProperties();
        state.ResumeTiming();

        auto t = std::chrono::steady_clock::now();
        frame.FindOptimalNodeSort(1);
        const double ordering = Seconds(t);

        t = std::chrono::steady_clock::now();
        int neq = 0, band = 0, blockSize = 0, nBlocks = 0, nModes = 0;
        const int nLoad = static_cast<int>(run.GetLoadcaseList().GetCount());
        const int nElem = static_cast<int>(run.GetElementList().GetCount());
        bool ok = frame.PrepareSystemInput(neq) &&
                  frame.PrepareAnalysis(neq, nElem, band, blockSize, nBlocks, nModes, 0) &&
                  frame.MakeLoadMatrix(blockSize, nBlocks, nLoad) &&
                  frame.AddStiffness(nElem, nLoad, band, nBlocks, blockSize);
        const double assembly = Seconds(t);

        t = std::chrono::steady_clock::now();
        ok = ok && frame.SolveEquations(neq, nLoad, band, nBlocks, blockSize);
        const double solve = Seconds(t);

        t = std::chrono::steady_clock::now();
        ok = ok && frame.CalcReactionForces() && frame.CalcSectionForces();
        const double results = Seconds(t);
        frame.FindOptimalNodeSort(0);

        state.counters["nodes"] = static_cast<double>(run.GetNodeList().GetCount());
        state.counters["elements"] = nElem;
        state.counters["equations"] = neq;
        state.counters["band"] = band;
        state.counters["blocks"] = nBlocks;
        state.counters["ordering_s"] = ordering;
        state.counters["assembly_s"] = assembly;
        state.counters["solve_s"] = solve;
        state.counters["sectionforces_s"] = results;
        std::printf("%s: %s, %d equations, band %d, %d block(s) of %d; ordering %.3f s, assembly "
                    "%.3f s, solve %.3f s, reactions and section forces %.3f s\n",
                    name, ok ? "solved" : "FAILED", neq, band, nBlocks, blockSize, ordering,
                    assembly, solve, results);
        if (!ok) std::printf("%s", log.c_str());
    }
}

void BM_Girder(benchmark::State& state) { Analyse(state, BuildGirder, "girder"); }
void BM_Building(benchmark::State& state) { Analyse(state, BuildBuilding, "building"); }

BENCHMARK(BM_Girder)->Unit(benchmark::kSecond)->Iterations(1);
BENCHMARK(BM_Building)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
