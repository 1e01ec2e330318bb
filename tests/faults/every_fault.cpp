// SPDX-License-Identifier: MIT
#include "faults/every_fault.h"

namespace {

constexpr int mostCalls = 1000; // no scenario makes as many

} // namespace

bool EveryFault::tryFault(const Faults::Plan& plan)
{
    SCOPED_TRACE(testing::Message() << Faults::nameOf(plan.call) << " number " << plan.number << " fails with "
                                    << plan.error << (plan.forGood ? " for good" : ""));
    const std::unique_ptr<FaultScenario> scenario = GetParam().make();
    scenario->prepare();
    bool fired = false;
    {
        const Faults::Watch watch(scenario->home(), plan);
        scenario->act();
        fired = watch.hasFired();
    }
    scenario->checkAfterFault();
    scenario->act();
    scenario->checkAfterSuccess();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(scenario->home())) {
        EXPECT_EQ(entry.path().native().find(".tmp-"), std::string::npos) << entry.path();
    }
    return fired;
}

int EveryFault::tryAll(Faults::Call call, int error, bool forGood)
{
    int number = 1;
    while (number < mostCalls && tryFault({call, number, error, forGood}) && !HasFailure()) {
        ++number;
    }
    EXPECT_LT(number, mostCalls);
    return number - 1;
}

TEST_P(EveryFault, LosesNothingAndTellsNothingUntrue)
{
    int faults = 0;
    for (const Faults::Call call : Faults::allCalls()) {
        for (const int error : Faults::errorsOf(call)) {
            for (const bool forGood : {false, true}) {
                faults += tryAll(call, error, forGood);
                if (HasFailure()) {
                    return;
                }
            }
        }
    }
    RecordProperty("faults", faults);
    EXPECT_GT(faults, 100) << "the calls were not seen";
}
