// SPDX-License-Identifier: MIT
#pragma once

#include "plist/PropertyList.h"
#include "plist/Value.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace PropertyList {

/// An estimate, too high rather than too low, of the memory that a list in XML takes once it is read. The reader makes
/// it before it builds any values, and the writer while it writes, so that both refuse the same lists.
class ListMemory {
public:
    // Bytes of what a value shares with its copies, including the heap's overhead.
    static constexpr std::size_t heapSize = 16; ///< overhead of each allocation
    static constexpr std::size_t sharedSize = 16 + heapSize;
    static constexpr std::size_t arraySize = sharedSize + sizeof(Array) + 2 * heapSize;
    static constexpr std::size_t dictionarySize = sharedSize + sizeof(Dictionary) + heapSize;
    static constexpr std::size_t textSize = sharedSize + sizeof(std::string);

    ListMemory() = default;

    /// `taken` bytes are in use already.
    explicit ListMemory(std::size_t taken) : m_values(taken) {}

    /// Counts an element called `name` with `content` bytes between its tag and the next one.
    void addElement(std::string_view name, std::size_t content)
    {
        ++m_elements;
        m_values += valueSize(name, content);
        m_nodes += 2 * nodeSize; // a text may follow it
    }

    /// Counts an attribute, for which the parser makes a node.
    void addAttribute() { m_nodes += nodeSize; }

    /// Counts a comment, CDATA section or instruction with `content` bytes up to the next tag. It may be a text itself,
    /// and another text may follow it.
    void addSection(std::size_t content)
    {
        m_nodes += 2 * nodeSize;
        m_values += content;
    }

    /// Ends a part: the parser may free its nodes before it parses what follows.
    void endPart()
    {
        m_endedNodes += m_nodes;
        m_largestPart = std::max(m_largestPart, std::exchange(m_nodes, 0));
    }

    enum class Parsing { InParts, Whole };

    /// Whether a file of `size` bytes may hold what was counted.
    bool isAllowed(std::size_t size, Parsing parsing) const
    {
        const std::uint64_t nodes =
            parsing == Parsing::Whole ? m_endedNodes + m_nodes : std::max(m_nodes, m_largestPart);
        return m_elements <= maximumElements && isAllowed(m_values + nodes, size);
    }

    /// Whether `memory` bytes are allowed for a file of `size` bytes.
    static bool isAllowed(std::uint64_t memory, std::size_t size)
    {
        return memory <= memoryPerByte * std::uint64_t{size} + memoryOfSmallLists;
    }

private:
    static constexpr std::size_t nodeSize = 64;

    static std::size_t valueSize(std::string_view name, std::size_t content)
    {
        const std::size_t text = content > 15 ? content + heapSize : 0; // shorter texts are stored in the string itself
        if (name == "key") {
            return sizeof(Dictionary::Entry) - sizeof(Value) + text; // its value is counted as an element of its own
        }
        if (name == "string") {
            return sizeof(Value) + textSize + text;
        }
        if (name == "data") {
            return sizeof(Value) + textSize + 2 * text; // decoding holds the bytes twice for a moment
        }
        return sizeof(Value) + (name == "dict" ? dictionarySize : 0) + (name == "array" ? arraySize : 0);
    }

    std::uint64_t m_elements = 0;
    std::uint64_t m_values = 0;
    std::uint64_t m_nodes = 0;      ///< bytes, in the current part
    std::uint64_t m_endedNodes = 0; ///< bytes, in the parts that ended
    std::uint64_t m_largestPart = 0;
};

} // namespace PropertyList
