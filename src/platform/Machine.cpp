#include "platform/Machine.h"

#include <ctime>
#include <unistd.h>

namespace kelo {

namespace {

class RealMachine final : public Machine {
public:
    std::uint64_t PhysicalMemory() const override {
        return static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
               static_cast<std::uint64_t>(sysconf(_SC_PAGE_SIZE));
    }
    std::uint64_t AvailablePhysicalMemory() const override {
        return static_cast<std::uint64_t>(sysconf(_SC_AVPHYS_PAGES)) *
               static_cast<std::uint64_t>(sysconf(_SC_PAGE_SIZE));
    }
    // A 64-bit process has far more address space than memory; twice the memory stands for it.
    std::uint64_t VirtualMemory() const override { return 2 * PhysicalMemory(); }
    std::array<int, 6> LocalTime() const override {
        const std::time_t now = std::time(nullptr);
        std::tm tm{};
        localtime_r(&now, &tm);
        return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
    }
};

const RealMachine kReal;
const Machine* g_machine = &kReal;

} // namespace

const Machine& GetMachine() { return *g_machine; }
void SetMachine(const Machine* m) { g_machine = m ? m : &kReal; }

} // namespace kelo
