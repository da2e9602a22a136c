// tovi-pages FOLDER: writes the manual pages of all programs to FOLDER/man, and what completes
// their command lines to FOLDER/completions. The build runs it.

#include "pages/Completions.h"
#include "pages/ManPages.h"

#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "tovi-pages FOLDER\n";
        return 2;
    }
    try {
        const std::filesystem::path folder = argv[1];
        for (const Page& page : {PageOfTovi(), PageOfViewer(), PageOfSample()}) {
            WriteManPages(page, folder / "man");
            WriteCompletions(page, folder / "completions");
        }
    } catch (const std::exception& error) {
        std::cerr << "tovi-pages: " << error.what() << ".\n";
        return 1;
    }
    return 0;
}
