#include "files/text_item.h"

#include <algorithm>

namespace tavlon12 {

std::string_view TextItem(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    if (!line.starts_with('"')) return line.substr(0, line.find(','));
    line.remove_prefix(1);
    return line.substr(0, line.find('"'));
}

} // namespace tavlon12
