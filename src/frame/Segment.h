#pragma once

#include "platform/Object.h"

#include <vector>

namespace kelo {

// A node as the segment ordering sees it: its number, coordinates and the elements that meet
// there (indices into the ordering's element array).
class COptiNode : public CObject {
public:
    COptiNode() = default;
    COptiNode(int no, double x, double y, double z) : No(no), X(x), Y(y), Z(z) {}
    int No = 0;
    double X = 0.0, Y = 0.0, Z = 0.0;
    std::vector<int> Elements;
};

// An element as the segment ordering sees it: its number and its end nodes (indices into the
// ordering's node array), and whether a segment has taken it yet.
class COptiElement : public CObject {
public:
    COptiElement() = default;
    COptiElement(int no, int node1, int node2) : No(no), Node1(node1), Node2(node2) {}
    int No = 0;
    int Node1 = 0, Node2 = 0;
    int Used = 0;
};

// An unbranched run of elements between two nodes where the frame branches or ends: the node
// numbers in walking order from its start node, and the centre of its end nodes (m).
class CSegment : public CObject {
public:
    CSegment() = default;
    std::vector<int> Nodes;
    double Centre[3] = {0.0, 0.0, 0.0};
    int GetStartNode() const { return Nodes.empty() ? 0 : Nodes.front(); }
    // Centre coordinate by key: 1 X, 2 Y, any other Z.
    double GetCentre(int key) const {
        return key == 1 ? Centre[0] : key == 2 ? Centre[1] : Centre[2];
    }
};

} // namespace kelo
