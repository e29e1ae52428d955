// Station queries on long reference lines. Prints the time of one CalcCoordByStation.
//
// The line has 500 chained plan segments (straight, clothoid in, arc, clothoid out, repeated
// with alternating sense) and a three-grade elevation. The same segments numbered against their
// stations make the line fall back to walking its whole list; the ratio of the two is the gain of
// finding the segment by bisection. A line with 500 tangent polygon legs shows the cost of
// working out the corner roundings, which every coordinate query does.
#include "geometry/RefLine.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

using namespace kelo;

namespace {

constexpr int kSegments = 500;

std::unique_ptr<CRefLine> MakeWindingLine() {
    auto line = std::make_unique<CRefLine>(1, "Winding");
    line->AddHorSegment(
        std::make_unique<CHorSegment>(1, line.get(), 1, 0.0, 0.0, 0.0, 60.0, 60.0, 0.0, 0, 0, 0));
    double st = 60.0;
    const double r = 400.0, spiral = 40.0, a = std::sqrt(r * spiral);
    for (int no = 2; no <= kSegments; ++no) {
        const int kind = no % 4;
        const double sense = (no / 4) % 2 ? 1.0 : -1.0;
        double len = 60.0, r0 = 0.0, r1 = 0.0;
        int type = 11;
        if (kind == 2) {
            type = 13;
            len = spiral;
            r1 = sense * r;
        } else if (kind == 3) {
            type = 12;
            len = 80.0;
            r0 = sense * r;
        } else if (kind == 0) {
            type = 13;
            len = spiral;
            r0 = sense * r;
        }
        line->AddHorSegment(std::make_unique<CHorSegment>(no, line.get(), type, st, 0, 0, st + len,
                                                          0, 0, r0, r1, type == 13 ? a : 0.0));
        st += len;
    }
    line->RecalcChainedHorSegments();
    const double third = st / 3.0;
    line->AddVerSegment(std::make_unique<CVerSegment>(1, line.get(), 1, 0, 10, third, 20, 0));
    line->AddVerSegment(
        std::make_unique<CVerSegment>(2, line.get(), 1, third, 20, 2 * third, 15, 0));
    line->AddVerSegment(std::make_unique<CVerSegment>(3, line.get(), 1, 2 * third, 15, st, 30, 0));
    for (CVerSegment* v : line->GetVerSegmentList()) v->CalculateAndValidate();
    return line;
}

// The same calculated segments numbered from the far end: start stations fall along the list.
std::unique_ptr<CRefLine> Renumbered(const CRefLine& src) {
    auto line = std::make_unique<CRefLine>(2, "Renumbered");
    for (const CHorSegment* s : src.GetHorSegmentList()) {
        auto copy = std::make_unique<CHorSegment>(*s);
        copy->SetHorSegNo(kSegments + 1 - s->GetHorSegNo());
        line->AddHorSegment(std::move(copy));
    }
    for (const CVerSegment* v : src.GetVerSegmentList())
        line->AddVerSegment(std::make_unique<CVerSegment>(*v));
    return line;
}

std::vector<double> Stations(double end) {
    std::mt19937 gen(7);
    std::uniform_real_distribution<double> d(0.0, end);
    std::vector<double> out(1024);
    for (double& s : out) s = d(gen);
    return out;
}

void Query(benchmark::State& state, CRefLine& line) {
    const std::vector<double> st = Stations(line.GetStationEnd());
    std::size_t i = 0;
    double c[3];
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.CalcCoordByStation(st[i++ & 1023], c));
        benchmark::ClobberMemory();
    }
}

void BM_Coord500Segments(benchmark::State& state) {
    auto line = MakeWindingLine();
    Query(state, *line);
}

void BM_Coord500SegmentsWholeWalk(benchmark::State& state) {
    auto line = Renumbered(*MakeWindingLine());
    Query(state, *line);
}

void BM_Coord500TangentPolygonLegs(benchmark::State& state) {
    auto line = std::make_unique<CRefLine>(3, "Legs");
    line->AddHorSegment(std::make_unique<CHorSegment>(1, line.get(), 1, 0.0, 0.0, 0.0, 50000.0,
                                                      50000.0, 0.0, 0, 0, 0));
    for (int no = 1; no <= kSegments; ++no) {
        const double s0 = (no - 1) * 100.0;
        const double z0 = (no % 2) ? 10.0 : 11.0;
        line->AddVerSegment(std::make_unique<CVerSegment>(no, line.get(), 5, s0, z0, s0 + 100.0,
                                                          21.0 - z0, 3000.0));
    }
    line->RecalcChainedHorSegments();
    Query(state, *line);
}

} // namespace

BENCHMARK(BM_Coord500Segments);
BENCHMARK(BM_Coord500SegmentsWholeWalk);
BENCHMARK(BM_Coord500TangentPolygonLegs);
BENCHMARK_MAIN();
