// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// An input of several texts: lines, the last of which extends to the end of the input.
class Lines {
public:
    Lines(const std::uint8_t* data, std::size_t size) : m_input(data, data + size), m_rest(m_input) {}
    Lines(const Lines&) = delete;
    Lines& operator=(const Lines&) = delete;
    ~Lines() = default;

    /// The next line; empty when there is none.
    std::string next()
    {
        const std::size_t end = std::min(m_rest.find('\n'), m_rest.size());
        const std::string_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return std::string(line);
    }

    std::string rest() const { return std::string(m_rest); }

private:
    std::string m_input;
    std::string_view m_rest; // a part of m_input
};
