// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "plist/PropertyList.h"
#include "store/Draft.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// A draft that can be read must, written and read again, have as many changes, and must be restorable.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::optional<Table> table = PropertyList::readTable(std::string(data, data + size));
    const std::optional<Draft> draft = table ? Drafts::draftFromTable(*table) : std::nullopt;
    if (!draft) {
        return 0;
    }
    const std::string written = PropertyList::writeXml(Drafts::tableFromDraft(*draft));
    const std::optional<Table> again = PropertyList::readTable(written);
    const std::optional<Draft> read = again ? Drafts::draftFromTable(*again) : std::nullopt;
    if (!read || read->size() != draft->size()) {
        fail("what was written cannot be read");
    }
    Table notes;
    Table events;
    Drafts::restoreNotes(*draft, notes);
    Drafts::restoreEvents(*draft, events);
    if (Drafts::changedNotes(notes, notes) != Draft() || Drafts::changedEvents(events, events) != Draft()) {
        fail("equal tables have a draft");
    }
    return 0;
}
