// SPDX-License-Identifier: MIT
// The draft while calls of the system fail.
#include "faults/every_fault.h"
#include "store/DraftFile.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

/// A draft of another run is read, and one of this run written that has what was read, too.
class DraftIsReplaced : public FaultScenario {
    static DraftChange changeTo(const std::string& text)
    {
        return {DraftChange::Kind::Note, std::nullopt, DatedText{dateFromUnixSeconds(0), text}};
    }
    fs::path state() const { return home() / "state"; }

    void prepare() override
    {
        DraftFile(state()).write([] { return Draft{changeTo("former")}; });
    }
    void act() override
    {
        DraftFile run(state());
        Draft draft = run.read();
        if (std::ranges::count(draft, changeTo("new")) == 0) {
            draft.push_back(changeTo("new"));
        }
        run.write([draft] { return draft; });
    }
    void checkAfterFault() override
    {
        std::ptrdiff_t former = 0;
        for (const std::string& name : namesIn(state())) {
            if (name.find(".tmp-") == std::string::npos) {
                const std::optional<Table> table = listIn(state() / name);
                ASSERT_TRUE(table) << name << " is torn";
                former += std::ranges::count(Drafts::draftFromTable(*table).value_or(Draft()), changeTo("former"));
            }
        }
        EXPECT_GT(former, 0) << "lost";
    }
    void checkAfterSuccess() override
    {
        EXPECT_EQ(namesIn(state()), std::vector<std::string>{"Draft"});
        const Draft draft = DraftFile(state()).read();
        EXPECT_EQ(draft.size(), 2U);
        EXPECT_EQ(std::ranges::count(draft, changeTo("former")), 1) << "the next run is not offered it";
        EXPECT_EQ(std::ranges::count(draft, changeTo("new")), 1);
    }
};

/// What another program put in the draft's place is not a draft, but not to be lost either.
class DraftIsNone : public FaultScenario {
    fs::path state() const { return home() / "state"; }

    void prepare() override
    {
        fs::create_directory(state());
        put(state() / "Draft", "of a newer version");
    }
    void act() override
    {
        DraftFile run(state());
        run.read();
        run.write([] { return Draft{{DraftChange::Kind::Note, std::nullopt, DatedText{Date(), "new"}}}; });
    }
    void checkAfterFault() override
    {
        const std::vector<std::string> names = namesIn(state());
        EXPECT_TRUE(std::ranges::any_of(names, [this](const std::string& name) {
            return bytesOf(state() / name) == "of a newer version";
        })) << "lost";
    }
    void checkAfterSuccess() override
    {
        checkAfterFault();
        EXPECT_FALSE(DraftFile(state()).read().empty());
    }
};

const FaultRow draftScenarios[] = {
    faultRow<DraftIsReplaced>("IsReplaced"),
    faultRow<DraftIsNone>("IsNone"),
};

INSTANTIATE_TEST_SUITE_P(Draft, EveryFault, testing::ValuesIn(draftScenarios), nameOfFaultRow);

} // namespace
