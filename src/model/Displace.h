#pragma once

#include "platform/Object.h"

namespace kelo {

// Displacements of one node for one load case or combination: three translations (m) and three
// rotations (rad) in global axes.
class CDisplace : public CObject {
public:
    CDisplace() = default;
    CDisplace(int nodeNo, int loadComb, int code, double ux, double uy, double uz, double rotx,
              double roty, double rotz)
        : NodeNo(nodeNo), LoadComb(loadComb), Code(code), Ux(ux), Uy(uy), Uz(uz), Rotx(rotx),
          Roty(roty), Rotz(rotz) {}

    int KeyNo() const { return NodeNo; }
    int GetNodeNo() const { return NodeNo; }
    void SetNodeNo(int v) { NodeNo = v; }
    int GetLoadComb() const { return LoadComb; }
    void SetLoadComb(int v) { LoadComb = v; }
    int GetCode() const { return Code; }
    void SetCode(int v) { Code = v; }
    double GetUx() const { return Ux; }
    void SetUx(double v) { Ux = v; }
    double GetUy() const { return Uy; }
    void SetUy(double v) { Uy = v; }
    double GetUz() const { return Uz; }
    void SetUz(double v) { Uz = v; }
    double GetRotx() const { return Rotx; }
    void SetRotx(double v) { Rotx = v; }
    double GetRoty() const { return Roty; }
    void SetRoty(double v) { Roty = v; }
    double GetRotz() const { return Rotz; }
    void SetRotz(double v) { Rotz = v; }
    // The six values in the order Ux, Uy, Uz, Rotx, Roty, Rotz (index 0 to 5).
    double Get(int i) const;
    void Set(int i, double v);
    // Turns the translations and the rotations into the axes whose unit vectors, in global X, Y,
    // Z, are the rows of `axes`: an element's TransMatrix turns them into its local L, M, N.
    void Transform(const double axes[3][3]);

private:
    int NodeNo = 0;
    int LoadComb = 0;
    int Code = 0;
    double Ux = 0.0, Uy = 0.0, Uz = 0.0, Rotx = 0.0, Roty = 0.0, Rotz = 0.0;
};

} // namespace kelo
