#pragma once

#include <array>

namespace kelo {

// The twelve governing rows of one section under one sorted combination, built line by line.
// Row r for r in 0..5 is the set in which component r is greatest, row r in 6..11 the set in
// which component r - 6 is least. Beside the forces, the same decisions may be carried over to
// the displacement vector of a node that belongs to the section: every rule that replaces or
// adds a force row replaces or adds the matching displacement row.
class CSortCombiner {
public:
    using Row = std::array<double, 6>;
    using Rows = std::array<Row, 12>;

    explicit CSortCombiner(int method);

    // One line of the combination that was read in full: factor `f`, force rows `r`, and the
    // node's displacement rows `d` when they were all found (null otherwise). `first` is set for
    // the first line of the combination's list, whether or not an earlier line was read.
    void AddLine(double f, const Rows& r, const Rows* d, bool first);
    // Closes the combination: the dynamic term of SDYNW is put in with its own sign rule.
    void Finish();

    int GetCounted() const { return Counted; }
    int GetDisplCounted() const { return DisplCounted; }
    const Rows& GetForces() const { return C; }
    const Rows& GetDispls() const { return D; }

    // Which row of a line the S-methods (SWORST, SADDIF, RMSPH) take for component i, and
    // whether the set is turned: row i when the line's maximum is not smaller in size than its
    // minimum, else row i + 6.
    static int ChooseRow(double f, const Rows& r, int i, bool& negative);

private:
    void Worst(double f, const Rows& r, const Rows* d, bool first);
    void SWorst(double f, const Rows& r, const Rows* d);
    void AddIf(double f, const Rows& r, const Rows* d);
    void PerComponent(double f, const Rows& r, const Rows* d);

    int Method;
    int Counted = 0;
    int DisplCounted = 0;
    Rows C{};
    Rows D{};
    // The dynamic term of SDYNW: the first line, with its factor.
    Rows G{};
    Rows GD{};
    double g = 0.0;
};

} // namespace kelo
