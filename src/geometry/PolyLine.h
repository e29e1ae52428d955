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
    // Empties both lists.
    void RemoveAll();

    // Rebuilds the converted list: ordinary points are copied; each bow becomes 18 chords, the 17
    // points between its ends carrying TemporaryFlag. A closed line is a ring, so a bow may
    // close it. A run of radius points next to each other makes no bow.
    void MakeConvSectPointList();

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    int GetClosed() const { return Closed; }
    void SetClosed(int v) { Closed = v; }
    int GetColor() const { return Color; }
    void SetColor(int v) { Color = v; }

private:
    void AddBow(const CSectPoint& p, const CSectPoint& radius, const CSectPoint& q);

    int No = 0;
    int Type = 0;
    int Closed = 0;
    int Color = 0;
    std::vector<std::unique_ptr<CSectPoint>> SectPointList;
    std::vector<std::unique_ptr<CSectPoint>> ConvSectPointList;
};

} // namespace kelo
