#pragma once

#include <QString>

#include <string>

namespace tavlon12 {

/// Bytes as the user sees them: UTF-8, or Windows-1252 where they are not valid UTF-8.
QString Shown(const std::string& bytes);

/// What the user sees or has typed, as UTF-8.
std::string BytesOf(const QString& text);

} // namespace tavlon12
