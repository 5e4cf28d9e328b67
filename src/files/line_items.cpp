#include "files/line_items.h"

#include <algorithm>

namespace tavlon12 {

namespace {

std::string_view WithoutLeadingBlanks(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line;
}

} // namespace

std::string_view TextItem(std::string_view line) {
    line = WithoutLeadingBlanks(line);
    if (!line.starts_with('"')) return line.substr(0, line.find(','));
    line.remove_prefix(1);
    return line.substr(0, line.find('"'));
}

std::string_view NumberItem(std::string_view line) {
    line = WithoutLeadingBlanks(line);
    return line.substr(0, line.find_first_of(" ,"));
}

} // namespace tavlon12
