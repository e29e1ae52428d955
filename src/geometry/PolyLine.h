#pragma once

#include "geometry/SectPoint.h"
#include "platform/Object.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace kelo {

// An open or closed line of section points, with the polygon it stands for: the converted list,
// in which each bow (a radius point between two ordinary points) is turned into chords.
class CPolyLine : public CObject {
public:
    using PointList = std::vector<std::unique_ptr<CSectPoint>>;

    CPolyLine() = default;
    CPolyLine(int no, int type, int closed) : No(no), Type(type), Closed(closed) {}
    CPolyLine(const CPolyLine& other);
    CPolyLine& operator=(const CPolyLine& other);
    CPolyLine(CPolyLine&&) noexcept = default;
    CPolyLine& operator=(CPolyLine&&) noexcept = default;
    ~CPolyLine() override = default;

    int KeyNo() const { return No; }

    // Appends at the tail, or puts at the head of the point list.
    CSectPoint* AddSectPoint(std::unique_ptr<CSectPoint> point);
    CSectPoint* AddSectPointHead(std::unique_ptr<CSectPoint> point);
    // Insert before the first entry of a greater number, or at the tail: after any entries of the
    // same number.
    CSectPoint* InsertSectPoint(std::unique_ptr<CSectPoint> point);
    CSectPoint* InsertConvSectPoint(std::unique_ptr<CSectPoint> point);
    // The first point of that number (within 1e-5), null when there is none.
    CSectPoint* GetSectPointPtr(double no) const;
    std::size_t GetSectPointCount() const { return SectPointList.size(); }
    CSectPoint* GetSectPointAt(std::size_t pos) const { return SectPointList[pos].get(); }
    std::size_t GetConvSectPointCount() const { return ConvSectPointList.size(); }
    CSectPoint* GetConvSectPointAt(std::size_t pos) const { return ConvSectPointList[pos].get(); }
    // Removes the point at that position of the point list.
    void RemoveSectPointAt(std::size_t pos);
    // Empties both lists.
    void RemoveAll();
    const PointList& GetSectPointList() const { return SectPointList; }
    const PointList& GetConvSectPointList() const { return ConvSectPointList; }

    // Rebuilds the converted list: ordinary points are copied; each bow becomes 18 chords, the 17
    // points between its ends carrying TemporaryFlag. A closed line is a ring, so a bow may
    // close it. A run of radius points next to each other makes no bow.
    void MakeConvSectPointList();
    // Places each radius point at the middle of its bow, for drawing and picking; the bow itself
    // is made from the radius. The list is a ring here whether closed or not.
    void CalcRadPtCoord() { CalcRadPtCoord(SectPointList); }
    // Stores in each point the bulge of the bow that starts at it, tan(sweep/4), positive for a
    // bow drawn counter-clockwise about its centre; 0 where no bow starts.
    void CalcBulgeValues() { CalcBulgeValues(SectPointList, Closed != 0); }

    // --- Bows, shared with the outline of a section ---
    // Centre (cx, cy) and signed sweep (rad, positive counter-clockwise about the centre) of the
    // bow of radius r from p to q. The centre lies to the left of the chord for a positive radius,
    // so the bow bulges to the right. A chord longer than 2|r| is taken as a half circle. Answers
    // 0 for a chord or radius of no length.
    static int BowCentre(const CSectPoint& p, double r, const CSectPoint& q, double& cx, double& cy,
                         double& sweep);
    // Appends the 17 points between p and q that make the bow 18 chords.
    static void AppendBowPoints(const CSectPoint& p, const CSectPoint& radius, const CSectPoint& q,
                                PointList& out, int temporaryFlag);
    static void CalcRadPtCoord(PointList& list);
    static void CalcBulgeValues(PointList& list, bool ring);

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    int GetClosed() const { return Closed; }
    void SetClosed(int v) { Closed = v; }
    int GetColor() const { return Color; }
    void SetColor(int v) { Color = v; }

private:
    int No = 0;
    int Type = 0;
    int Closed = 0;
    int Color = 0;
    PointList SectPointList;
    PointList ConvSectPointList;
};

} // namespace kelo
