#include "support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tavlon12 {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tavlon12-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
    Path = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
}

void WriteFile(const std::filesystem::path& file, std::string_view bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::filesystem::path ShippedDefaultVariant() {
    return std::filesystem::path(TAVLON12_DATA_DIR) / "variants" / "Canadian Checkers.ini";
}

} // namespace tavlon12
