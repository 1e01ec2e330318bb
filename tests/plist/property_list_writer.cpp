// SPDX-License-Identifier: MIT
// Reads a property list from the standard input and writes it as XML to the standard output.
#include "plist/PropertyList.h"

#include <cstdlib>
#include <iostream>
#include <iterator>

int main()
{
    const std::string bytes{std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    const std::optional<Table> table = PropertyList::readTable(bytes);
    if (!table) {
        return EXIT_FAILURE;
    }
    std::cout << PropertyList::writeXml(*table) << std::flush;
    return EXIT_SUCCESS;
}
