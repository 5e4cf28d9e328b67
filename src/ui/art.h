#pragma once

#include <QIcon>

namespace tavlon12 {

/// The icon in a vector file of the program's art, such as "toolbar/save". It is drawn anew for every size and pixel
/// ratio, and greyed for a disabled control; the toolkit's plugins are not used. Null where there is no such file.
QIcon ArtIcon(const QString& name);

} // namespace tavlon12
