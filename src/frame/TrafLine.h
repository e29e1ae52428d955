#pragma once

#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// One element of a traffic line: its length (m), the distance from the line start to the element
// start (m), the stretches the element is cut into, and the stretches on the line before it.
class CTrafLineElem : public CObject {
public:
    CTrafLineElem() = default;
    CTrafLineElem(int elemNo, double length, double accum, int posNo, int accPosNo)
        : TrafLineElemNo(elemNo), TrafLineElemLength(length), TrafLineElemAccum(accum),
          TrafLineElemPosNo(posNo), TrafLineElemAccPosNo(accPosNo) {}
    KELO_FIELD(int, TrafLineElemNo, 0)
    KELO_FIELD(double, TrafLineElemLength, 0.0)
    KELO_FIELD(double, TrafLineElemAccum, 0.0)
    KELO_FIELD(int, TrafLineElemPosNo, 1)
    KELO_FIELD(int, TrafLineElemAccPosNo, 0)
};

// One TRAFLINE command as given: an element range, the stretches per element and the spacing
// (m) that cuts elements into stretches when above 0.
class CTrafLineInp : public CObject {
public:
    CTrafLineInp() = default;
    CTrafLineInp(int from, int to, int inc, int posNo, double minPosDist)
        : FromElemNo(from), ToElemNo(to), ElemInc(inc), PosNo(posNo), MinPosDist(minPosDist) {}
    KELO_FIELD(int, FromElemNo, 0)
    KELO_FIELD(int, ToElemNo, 0)
    KELO_FIELD(int, ElemInc, 1)
    KELO_FIELD(int, PosNo, 0)
    KELO_FIELD(double, MinPosDist, 0.0)
};

// A traffic line: a chain of elements along which unit loads are placed.
class CTrafLine : public CObject {
public:
    CTrafLine() = default;
    CTrafLine(int no, std::string name) : TrafLineNo(no), Name(std::move(name)) {}
    int KeyNo() const { return TrafLineNo; }

    COwnedList<CTrafLineElem>& GetTrafLineElemList() { return TrafLineElemList; }
    const COwnedList<CTrafLineElem>& GetTrafLineElemList() const { return TrafLineElemList; }
    COwnedList<CTrafLineInp>& GetTrafLineInpList() { return TrafLineInpList; }
    const COwnedList<CTrafLineInp>& GetTrafLineInpList() const { return TrafLineInpList; }
    // The length of the line so far: where the next element starts (m).
    double GetAccumLength() const;
    // Stretches on the line so far.
    int GetAccumPosNo() const;

    KELO_FIELD(int, TrafLineNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, PosCount, 0)
    KELO_FIELD(double, MinPosDist, 0.0)

private:
    COwnedList<CTrafLineElem> TrafLineElemList;
    COwnedList<CTrafLineInp> TrafLineInpList;
};

// One track of a traffic load. TrafType: 1 and 6 distributed and concentrated loads, 2 train of
// load model 71, 3 train SW, 4 train T2000. The eight track values are kept as given:
// - types 1 and 6: q (kN/m), P1, P2, P3 (kN), spacing d1 from load 1 to 2 and d2 from load 2 to
//   3 (m), end weights c1 and c2;
// - trains: the distance a (m), the distance b (m), the distributed load q (kN/m), the axle load
//   P (kN), and for T2000 the length l of the train (m).
class CTrafTrack : public CObject {
public:
    CTrafTrack() = default;
    CTrafTrack(int no, int type, int direction)
        : TrafTrackNo(no), TrafType(type), TrafDirection(direction) {}
    int KeyNo() const { return TrafTrackNo; }
    // Sets the eight values and the distances and intensity that the type reads from them.
    void SetTrafTrackValues(const double* values);
    void GetTrafTrackValues(double* values) const;
    // The intensity of the distributed part (kN/m).
    double GetQ() const { return Q; }

    KELO_FIELD(int, TrafTrackNo, 0)
    KELO_FIELD(int, TrafType, 1)
    KELO_FIELD(int, TrafDirection, 3)
    KELO_FIELD(double, TrafTrackAdist, 0.0)
    KELO_FIELD(double, TrafTrackBdist, 0.0)
    KELO_ARRAY_FIELD(double, TrafTrackValue, 8)

private:
    double Q = 0.0;
};

// A traffic load on a traffic line; its twelve governing results go under the load numbers
// TrafLoadNo to TrafLoadNo + 11.
class CTrafLoad : public CObject {
public:
    CTrafLoad() = default;
    CTrafLoad(int no, int line, std::string name)
        : TrafLoadNo(no), TrafLineNo(line), Name(std::move(name)) {}
    int KeyNo() const { return TrafLoadNo; }

    CObList<CTrafTrack>& GetTrafTrackList() { return TrafTrackList; }
    const CObList<CTrafTrack>& GetTrafTrackList() const { return TrafTrackList; }

    KELO_FIELD(int, TrafLoadNo, 0)
    KELO_FIELD(int, TrafLineNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, PrintTrafLoad, 0)
    KELO_FIELD(std::string, StrPrintTrafLoad, "")
    KELO_FIELD(int, PrintLc, 0)

private:
    CObList<CTrafTrack> TrafTrackList;
};

} // namespace kelo
