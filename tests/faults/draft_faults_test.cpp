// SPDX-License-Identifier: MIT
// The draft while calls of the system fail.
#include "faults/every_fault.h"
#include "store/DraftFile.h"

namespace {

namespace fs = std::filesystem;

/// A draft of another run is read, and one of this run written.
class DraftIsReplaced : public FaultScenario {
    static Draft draftOf(const std::string& text)
    {
        return {{DraftChange::Kind::Note, std::nullopt, DatedText{dateFromUnixSeconds(0), text}}};
    }
    fs::path state() const { return home() / "state"; }

    void prepare() override
    {
        DraftFile(state()).write([] { return draftOf("former"); });
    }
    void act() override
    {
        DraftFile run(state());
        const Draft former = run.read();
        m_wasRead = former == draftOf("former") || former == draftOf("both");
        run.write([former] { return draftOf(former.empty() ? "new" : "both"); });
    }
    void checkAfterFault() override
    {
        bool holdsFormer = false;
        for (const std::string& name : namesIn(state())) {
            if (name.find(".tmp-") != std::string::npos) {
                continue;
            }
            const std::optional<Table> table = listIn(state() / name);
            ASSERT_TRUE(table) << name << " is torn";
            const std::optional<Draft> draft = Drafts::draftFromTable(*table);
            holdsFormer = holdsFormer || draft == draftOf("former") || draft == draftOf("both");
        }
        EXPECT_TRUE(holdsFormer) << "lost";
    }
    void checkAfterSuccess() override { checkAfterFault(); }

    bool m_wasRead = false;
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
    void checkAfterSuccess() override { checkAfterFault(); }
};

const FaultRow rows[] = {
    faultRow<DraftIsReplaced>("IsReplaced"),
    faultRow<DraftIsNone>("IsNone"),
};

INSTANTIATE_TEST_SUITE_P(Draft, EveryFault, testing::ValuesIn(rows), nameOfFaultRow);

} // namespace
