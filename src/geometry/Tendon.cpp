#include "geometry/Tendon.h"

namespace kelo {

CTendon::CTendon(const CTendon& other) { *this = other; }

CTendon& CTendon::operator=(const CTendon& other) {
    if (this == &other) return *this;
    No = other.No;
    Name = other.Name;
    Type = other.Type;
    External = other.External;
    GeomType = other.GeomType;
    RefLineNo = other.RefLineNo;
    RelativeType = other.RelativeType;
    RelPointNo = other.RelPointNo;
    MatParNo = other.MatParNo;
    DesParNo = other.DesParNo;
    Area = other.Area;
    DuctDiameter = other.DuctDiameter;
    GroutStrength = other.GroutStrength;
    NoOfTendons = other.NoOfTendons;
    SpaceLDir = other.SpaceLDir;
    SpaceNDir = other.SpaceNDir;
    ConnectTendon = other.ConnectTendon;
    LOffset = other.LOffset;
    NOffset = other.NOffset;
    Stress1 = other.Stress1;
    Stress2 = other.Stress2;
    StressCode = other.StressCode;
    GroupNo = other.GroupNo;
    Elongation1 = other.Elongation1;
    Elongation2 = other.Elongation2;
    TotalLength = other.TotalLength;
    TotalAngle = other.TotalAngle;
    Mu = other.Mu;
    Wobble = other.Wobble;
    Slip1 = other.Slip1;
    Slip2 = other.Slip2;
    Shrinkage = other.Shrinkage;
    Creep = other.Creep;
    RelaxLow = other.RelaxLow;
    RelaxHigh = other.RelaxHigh;
    RelaxLoss = other.RelaxLoss;
    // Pieces are copied and owned by the copy; the element geometry points at pieces and
    // elements of the original, so the copy makes it again when it is brought up to date.
    GeomL = other.GeomL;
    GeomN = other.GeomN;
    for (CTendonGeom* g : GeomL) g->SetOwner(this);
    for (CTendonGeom* g : GeomN) g->SetOwner(this);
    ElemGeom.RemoveAll();
    ElemRes = other.ElemRes;
    Updated = 0;
    return *this;
}

CTendon::~CTendon() = default;

} // namespace kelo
