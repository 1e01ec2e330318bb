// SPDX-License-Identifier: MIT
#pragma once

#include "faults/FaultShim.h"
#include "plist/PropertyList.h"
#include "store/store_fixture.h"

#include <functional>
#include <memory>
#include <string>

/// A home of its own, and what is done in it. Every call of the system that is made for it fails once, with each error
/// that it can have, and then for good. Whatever happens, nothing is lost and nothing untrue is told, and the next
/// attempt without a fault succeeds and tidies up.
class FaultScenario {
public:
    FaultScenario() = default;
    FaultScenario(const FaultScenario&) = delete;
    FaultScenario& operator=(const FaultScenario&) = delete;
    virtual ~FaultScenario() = default;

    virtual void prepare() = 0;
    virtual void act() = 0;

    /// What must hold although a call failed.
    virtual void checkAfterFault() = 0;

    /// What must hold once it was done again, without a fault.
    virtual void checkAfterSuccess() = 0;

    const std::filesystem::path& home() const { return m_home.path(); }

protected:
    FixedClock m_clock{storeTime};

private:
    TestFolder m_home;
};

/// The list in `file`; nullopt when there is no file, or none that is a list.
inline std::optional<Table> listIn(const std::filesystem::path& file)
{
    return std::filesystem::exists(file) ? PropertyList::readTable(bytesOf(file)) : std::nullopt;
}

struct FaultRow {
    const char* name;
    std::function<std::unique_ptr<FaultScenario>()> make;
};

template <typename Scenario> FaultRow faultRow(const char* name)
{
    return {name, [] { return std::make_unique<Scenario>(); }};
}

inline std::string nameOfFaultRow(const testing::TestParamInfo<FaultRow>& info)
{
    return info.param.name;
}

/// To be instantiated with rows of scenarios.
class EveryFault : public testing::TestWithParam<FaultRow> {
protected:
    /// False when the scenario makes fewer such calls.
    static bool tryFault(const Faults::Plan& plan);

    /// How many faults there were.
    static int tryAll(Faults::Call call, int error, bool forGood);
};
