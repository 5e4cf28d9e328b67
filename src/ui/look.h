#pragma once

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QString>

namespace tavlon12 {

/// The style and colours of the program, whatever the desktop's are: the board and its panels are drawn for a light
/// ground.
void ApplyLook(QApplication& application);

inline constexpr int kFontPixels = 12; ///< the places of the controls are pixels, so the letters are too

/// The program's font, or the machine's font of letters of one width.
QFont FontOfSize(int pixels, bool fixedPitch = false);

/// The colour of frames and of the lines between groups.
QColor LineColour();

/// The style sheet of a kind of widget as paper with a thin frame that is whole at any scale factor,
/// and darker while the keys go there.
QString Framed(const char* widget, int radius);

/// The style sheet of the progress bar.
QString ProgressStyle();

} // namespace tavlon12
