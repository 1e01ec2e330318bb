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

/// What a list in XML takes in memory once it is read: summed up from its elements, rather too much than too little.
/// The reader does it before it builds anything of them and the writer while it writes, so that both refuse the same
/// lists.
class ListMemory {
public:
    // Bytes of what a value shares with its copies, those that the heap keeps for itself counted.
    static constexpr std::size_t heapSize = 16; ///< beside each piece
    static constexpr std::size_t sharedSize = 16 + heapSize;
    static constexpr std::size_t arraySize = sharedSize + sizeof(Array) + 2 * heapSize;
    static constexpr std::size_t dictionarySize = sharedSize + sizeof(Dictionary) + heapSize;
    static constexpr std::size_t textSize = sharedSize + sizeof(std::string);

    ListMemory() = default;

    /// So many bytes are taken already.
    explicit ListMemory(std::size_t taken) : m_values(taken) {}

    /// An element whose tag has that name; `content` are the bytes between the tag and the next one.
    void addElement(std::string_view name, std::size_t content)
    {
        ++m_elements;
        m_values += valueSize(name, content);
        m_nodes += 2 * nodeSize; // there may be a text behind it
    }

    /// An attribute, of which the parser makes a node.
    void addAttribute() { m_nodes += nodeSize; }

    /// A comment, section or instruction, with so many bytes up to the next tag: it may be a text, and another may
    /// stand behind it.
    void addSection(std::size_t content)
    {
        m_nodes += 2 * nodeSize;
        m_values += content;
    }

    /// What comes next may be parsed after the nodes so far were thrown away.
    void endPart()
    {
        m_endedNodes += m_nodes;
        m_largestPart = std::max(m_largestPart, std::exchange(m_nodes, 0));
    }

    enum class Parsing { InParts, Whole };

    /// Whether a file of `size` bytes may hold the list.
    bool isAllowed(std::size_t size, Parsing parsing) const
    {
        const std::uint64_t nodes =
            parsing == Parsing::Whole ? m_endedNodes + m_nodes : std::max(m_nodes, m_largestPart);
        return m_elements <= maximumElements && isAllowed(m_values + nodes, size);
    }

    /// Whether what is read from a file of `size` bytes may take `memory` bytes.
    static bool isAllowed(std::uint64_t memory, std::size_t size)
    {
        return memory <= memoryPerByte * std::uint64_t{size} + memoryOfSmallLists;
    }

private:
    static constexpr std::size_t nodeSize = 64;

    static std::size_t valueSize(std::string_view name, std::size_t content)
    {
        const std::size_t text = content > 15 ? content + heapSize : 0; // shorter ones stand in the string itself
        if (name == "key") {
            return sizeof(Dictionary::Entry) - sizeof(Value) + text; // its value counts as every value does
        }
        if (name == "string") {
            return sizeof(Value) + textSize + text;
        }
        if (name == "data") {
            return sizeof(Value) + textSize + 2 * text; // the bytes are there twice for a moment
        }
        return sizeof(Value) + (name == "dict" ? dictionarySize : 0) + (name == "array" ? arraySize : 0);
    }

    std::uint64_t m_elements = 0;
    std::uint64_t m_values = 0;
    std::uint64_t m_nodes = 0;      ///< bytes, of the part so far
    std::uint64_t m_endedNodes = 0; ///< of the parts before
    std::uint64_t m_largestPart = 0;
};

} // namespace PropertyList
