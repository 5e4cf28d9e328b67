#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QString>

#include <string_view>

namespace tavlon12 {

/// Shows a dialog in the middle of the screen, as large as its controls ask for or of a size, and waits until it is
/// closed.
void RunCentred(QDialog& dialog);
void RunCentred(QDialog& dialog, const QSize& size);

QString Text(std::string_view text);

/// A caption as it is read out: without its access key and its colon.
QString Spoken(std::string_view caption);

/// Adds a button with a name, a caption and a tool tip.
QPushButton* AddButton(QDialogButtonBox& buttons, const char* name, const char* caption, const char* tip,
                       QDialogButtonBox::ButtonRole role);

} // namespace tavlon12
