#include "frame/SortCombiner.h"

#include <cmath>

namespace kelo {

namespace {

// The methods, as the combination records number them.
constexpr int kAdd = 0, kWorst = 1, kSWorst = 2, kAddIf = 3, kSAddIf = 4, kRms = 10, kRmsPh = 11,
              kSDynW = 13;
// Below this a governing value counts as no force at all (kN, kNm).
constexpr double kTiny = 1e-5;
// The start of the maximum and minimum rows of WORST and SWORST: any real force replaces it.
constexpr double kHuge = 1e20;

// Row `to` := sign f s; AddRow adds the same.
void SetRow(CSortCombiner::Row& to, double sign, double f, const CSortCombiner::Row& s) {
    for (int k = 0; k < 6; ++k) to[k] = sign * f * s[k];
}

void AddRow(CSortCombiner::Row& to, double sign, double f, const CSortCombiner::Row& s) {
    for (int k = 0; k < 6; ++k) to[k] += sign * f * s[k];
}

// The square-root sum of a row and f s; the minimum row of RMSPH keeps its old value as start.
void RootSumRow(CSortCombiner::Row& to, double f, const CSortCombiner::Row& s, bool minimum) {
    for (int k = 0; k < 6; ++k) {
        const double root = std::sqrt(to[k] * to[k] + f * s[k] * f * s[k]);
        to[k] = minimum ? to[k] - root : root;
    }
}

// The dynamic term of SDYNW on one row, entry k: the signed term is taken out and put back with
// the sign of what is left, so that the dynamic part always adds to the size of the rest.
void DynamicEntry(double& c, double term) {
    c -= term;
    if (c >= 0.0)
        c += std::fabs(term);
    else
        c -= std::fabs(term);
}

} // namespace

CSortCombiner::CSortCombiner(int method) : Method(method) {
    if (method == kWorst || method == kSWorst)
        for (int r = 0; r < 12; ++r) C[r].fill(r < 6 ? -kHuge : kHuge);
}

int CSortCombiner::ChooseRow(double f, const Rows& r, int i, bool& negative) {
    const double a = std::fabs(f * r[i][i]);
    const double b = std::fabs(f * r[i + 6][i]);
    if (b <= a) {
        negative = f * r[i][i] <= 0.0;
        return i;
    }
    negative = f * r[i + 6][i] < 0.0;
    return i + 6;
}

void CSortCombiner::AddLine(double f, const Rows& r, const Rows* d, bool first) {
    ++Counted;
    if (d) ++DisplCounted;
    switch (Method) {
    case kAdd:
    case kSDynW:
        for (int row = 0; row < 12; ++row) {
            AddRow(C[row], 1.0, f, r[row]);
            if (d) AddRow(D[row], 1.0, f, (*d)[row]);
        }
        if (Method == kSDynW && first) {
            G = r;
            if (d) GD = *d;
            g = f;
        }
        break;
    case kWorst:
        Worst(f, r, d, first);
        break;
    case kSWorst:
        SWorst(f, r, d);
        break;
    case kAddIf:
        AddIf(f, r, d);
        break;
    case kSAddIf:
    case kRmsPh:
        PerComponent(f, r, d);
        break;
    case kRms:
        for (int row = 0; row < 12; ++row) {
            RootSumRow(C[row], f, r[row], false);
            if (d) RootSumRow(D[row], f, (*d)[row], false);
        }
        break;
    default:
        break;
    }
}

void CSortCombiner::Worst(double f, const Rows& r, const Rows* d, bool first) {
    for (int row = 0; row < 12; ++row) {
        const int i = row % 6;
        // A tie goes to the later line in a maximum row and stays with the earlier in a minimum.
        const bool take =
            first || (row < 6 ? f * r[row][i] >= C[row][i] : f * r[row][i] < C[row][i]);
        if (!take) continue;
        SetRow(C[row], 1.0, f, r[row]);
        if (d) SetRow(D[row], 1.0, f, (*d)[row]);
    }
}

void CSortCombiner::SWorst(double f, const Rows& r, const Rows* d) {
    for (int i = 0; i < 6; ++i) {
        const double a = std::fabs(f * r[i][i]);
        const double b = std::fabs(f * r[i + 6][i]);
        int s = -1;
        bool negative = false;
        if (b <= a) {
            if (a > C[i][i]) {
                s = i;
                negative = f * r[i][i] <= 0.0;
            }
        } else if (b < C[i + 6][i]) {
            // A size against a signed value: this acts only while nothing was taken for i, as
            // a taken minimum row holds a value at or below zero.
            s = i + 6;
            negative = f * r[i + 6][i] < 0.0;
        }
        if (s < 0) continue;
        // Row i always holds the set turned so that component i is positive, row i + 6 its
        // mirror.
        const double sign = negative ? -1.0 : 1.0;
        SetRow(C[i], sign, f, r[s]);
        SetRow(C[i + 6], -sign, f, r[s]);
        if (d) {
            SetRow(D[i], sign, f, (*d)[s]);
            SetRow(D[i + 6], -sign, f, (*d)[s]);
        }
    }
}

void CSortCombiner::AddIf(double f, const Rows& r, const Rows* d) {
    for (int row = 0; row < 12; ++row) {
        const int i = row % 6;
        // Both limits are +1e-5: a minimum row also takes a line of no force at all.
        const bool take = row < 6 ? f * r[row][i] > kTiny : f * r[row][i] < kTiny;
        if (!take) continue;
        AddRow(C[row], 1.0, f, r[row]);
        if (d) AddRow(D[row], 1.0, f, (*d)[row]);
    }
}

void CSortCombiner::PerComponent(double f, const Rows& r, const Rows* d) {
    for (int i = 0; i < 6; ++i) {
        if (std::fabs(f * r[i][i]) + std::fabs(f * r[i + 6][i]) <= kTiny) continue;
        bool negative = false;
        const int s = ChooseRow(f, r, i, negative);
        if (Method == kSAddIf) {
            const double sign = negative ? -1.0 : 1.0;
            AddRow(C[i], sign, f, r[s]);
            AddRow(C[i + 6], -sign, f, r[s]);
            if (d) {
                AddRow(D[i], sign, f, (*d)[s]);
                AddRow(D[i + 6], -sign, f, (*d)[s]);
            }
        } else {
            RootSumRow(C[i], f, r[s], false);
            RootSumRow(C[i + 6], f, r[s], true);
            if (d) {
                RootSumRow(D[i], f, (*d)[s], false);
                RootSumRow(D[i + 6], f, (*d)[s], true);
            }
        }
    }
}

void CSortCombiner::Finish() {
    if (Method != kSDynW) return;
    for (int i = 0; i < 6; ++i) {
        if (std::fabs(g * G[i][i]) + std::fabs(g * G[i + 6][i]) <= kTiny) continue;
        for (int k = 0; k < 6; ++k) {
            if (k == i) {
                // The governing component takes the dynamic part at full size, outward.
                C[i][k] = C[i][k] - g * G[i][k] + std::fabs(g * G[i][k]);
                C[i + 6][k] = C[i + 6][k] - g * G[i + 6][k] - std::fabs(g * G[i + 6][k]);
            } else {
                DynamicEntry(C[i][k], g * G[i][k]);
                DynamicEntry(C[i + 6][k], g * G[i + 6][k]);
            }
            // A displacement has no governing component: every entry takes the sign rule.
            DynamicEntry(D[i][k], g * GD[i][k]);
            DynamicEntry(D[i + 6][k], g * GD[i + 6][k]);
        }
    }
}

} // namespace kelo
