// make-lifetime-notes FILE [COUNT]: writes a notes file of a lifetime, or of COUNT days, for measuring the program.
#include "bench/LifetimeNotes.h"
#include "plist/PropertyList.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char* argv[])
{
    const int count = argc == 3 ? std::atoi(argv[2]) : lifetimeNotes;
    if (argc < 2 || argc > 3 || count <= 0) {
        std::cerr << "usage: make-lifetime-notes FILE [COUNT]\n";
        return EXIT_FAILURE;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << PropertyList::writeXml(makeLifetimeNotes(count)) << std::flush;
    return file ? EXIT_SUCCESS : EXIT_FAILURE;
}
