#pragma once

#include "session/ui_port.h"

#include <QWidget>

#include <filesystem>

namespace tavlon12 {

/// The dialogs of Open and Save, which start in a folder. A name that is typed without an ending gets that of the
/// filter in force.
std::filesystem::path ChooseFile(QWidget* parent, const FileQuestion& question, const std::filesystem::path& folder);

} // namespace tavlon12
