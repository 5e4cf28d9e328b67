#include "lab/commands.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace {

/// The folder of the program, or the current one where the system does not tell.
std::filesystem::path FolderOfProgram() {
    std::error_code error;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path(".") : program.parent_path();
}

} // namespace

int main(int count, char** words) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> arguments(words + (count > 0 ? 1 : 0), words + count);
    auto lab = std::make_unique<tavlon12::lab::Lab>();
    lab->ProgramFolder = FolderOfProgram();
    return tavlon12::lab::RunTool(*lab, arguments, std::cin, std::cout, std::cerr);
}
