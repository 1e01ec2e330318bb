// SPDX-License-Identifier: MIT
#include "reminders/AutostartEntry.h"

#include "reminders/AgentName.h"
#include "store/Files.h"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace {

/// A value of type string, escaped so that nothing ends the line or is read as an escape.
std::string stringValue(const std::string& text)
{
    std::string value;
    for (const char c : text) {
        switch (c) {
        case '\\':
            value += R"(\\)";
            break;
        case '\n':
            value += R"(\n)";
            break;
        case '\r':
            value += R"(\r)";
            break;
        case '\t':
            value += R"(\t)";
            break;
        default:
            value += c;
        }
    }
    return value;
}

/// One argument of a command line, in double quotes.
std::string quotedArgument(const std::string& argument)
{
    std::string quoted = "\"";
    for (const char c : argument) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos) {
            quoted += '\\';
        } else if (c == '%') {
            quoted += '%'; // a single % begins a field code
        }
        quoted += c;
    }
    return quoted + '"';
}

} // namespace

std::string autostartText(const std::filesystem::path& program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Velumora Reminders\n"
           "Name[de]=Velumora-Erinnerungen\n"
           "Comment=Shows the reminder that is set for a note\n"
           "Comment[de]=Zeigt die Erinnerung, die für eine Notiz gesetzt ist\n"
           "NoDisplay=true\n"
           "TryExec=" +
           stringValue(program.native()) + "\nExec=" + stringValue(quotedArgument(program.native())) + '\n';
}

AutostartEntry::AutostartEntry(const std::filesystem::path& folder, std::filesystem::path program)
    : m_file(folder / agentName), m_program(std::move(program))
{
    m_file += ".desktop";
}

std::error_code AutostartEntry::enable() const
{
    const std::string text = autostartText(m_program);
    const std::optional<FileContent> present = readFile(m_file, 2 * text.size());
    if (present && present->text() == text) {
        return syncFolder(m_file.parent_path()); // which may have failed when it was written
    }
    const std::error_code error = makePrivateFolder(m_file.parent_path());
    return error ? error : replaceFile(m_file, text);
}

std::error_code AutostartEntry::disable() const
{
    return removeFile(m_file);
}
