#include "model/Loadcase.h"

namespace kelo {

CLoadcase::CLoadcase(const CLoadcase& other)
    : CObject(other), LoadcaseNo(other.LoadcaseNo), Name(other.Name), Type(other.Type),
      External(other.External), Active(other.Active), LoadClass(other.LoadClass),
      SumAppForces(other.SumAppForces), SumReaForces(other.SumReaForces), Results(other.Results),
      Traffic(other.Traffic), Dynamic(other.Dynamic),
      DynLoad(other.DynLoad ? std::make_unique<CDynLoad>(*other.DynLoad) : nullptr),
      LoadList(other.LoadList), LoadInpList(other.LoadInpList) {}

} // namespace kelo
