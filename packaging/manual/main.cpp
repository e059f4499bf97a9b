// Writes the manual pages and the shells' completions of both programs into a folder.
#include "Completions.h"
#include "ManualPage.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {
void write(const std::filesystem::path &file, const std::string &text)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream << text;
    stream.close();
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "Usage: vesperine-manual FOLDER\n";
        return 2;
    }
    try {
        const std::filesystem::path folder = argv[1];
        for (const ProgramDescription &program : {describeEditor(), describeCommandLine()}) {
            write(folder / "man" / (program.name + ".1"), manualPage(program));
            write(folder / "bash" / program.name, bashCompletion(program));
            write(folder / "zsh" / ("_" + program.name), zshCompletion(program));
            write(folder / "fish" / (program.name + ".fish"), fishCompletion(program));
        }
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
