#include "ui/look.h"

#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

namespace tavlon12 {

namespace {

const QColor kGround(240, 235, 226);
const QColor kPaper(255, 253, 249);
const QColor kInk(43, 36, 30);
const QColor kLine(201, 191, 176);
const QColor kAccent(122, 78, 42);

QPalette LookPalette() {
    QPalette palette(kGround, kGround);
    palette.setColor(QPalette::Window, kGround);
    palette.setColor(QPalette::WindowText, kInk);
    palette.setColor(QPalette::Base, kPaper);
    palette.setColor(QPalette::AlternateBase, QColor(247, 243, 235));
    palette.setColor(QPalette::Text, kInk);
    palette.setColor(QPalette::Button, QColor(232, 225, 213));
    palette.setColor(QPalette::ButtonText, kInk);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 250, 232));
    palette.setColor(QPalette::ToolTipText, kInk);
    palette.setColor(QPalette::PlaceholderText, QColor(150, 140, 128));
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(24, 88, 140));
    palette.setColor(QPalette::Light, QColor(255, 252, 246));
    palette.setColor(QPalette::Midlight, QColor(240, 233, 222));
    palette.setColor(QPalette::Mid, QColor(190, 180, 165));
    palette.setColor(QPalette::Dark, QColor(150, 140, 126));
    palette.setColor(QPalette::Shadow, QColor(90, 80, 70));
    QColor grey(160, 151, 140);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, grey);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(205, 196, 182));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, kInk);
    // The selected line of a list stays as clear when the focus goes elsewhere.
    palette.setColor(QPalette::Inactive, QPalette::Highlight, kAccent);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

void ApplyLook(QApplication& application) {
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(LookPalette());
}

QFont FontOfSize(int pixels, bool fixedPitch) {
    QFont font = fixedPitch ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QApplication::font();
    font.setPixelSize(pixels);
    if (fixedPitch) font.setStyleHint(QFont::Monospace);
    return font;
}

QColor LineColour() {
    return kLine;
}

QString Framed(const char* widget, int radius) {
    return QStringLiteral("%1 { background: %2; border: 1px solid %3; border-radius: %4px; }"
                          "%1:focus { border-color: %5; }")
        .arg(QLatin1String(widget), kPaper.name(), kLine.name())
        .arg(radius)
        .arg(kAccent.name());
}

QString ProgressStyle() {
    return QStringLiteral("QProgressBar { background: %1; border: none; border-radius: 3px; }"
                          "QProgressBar::chunk { background: %2; border-radius: 3px; }")
        .arg(QColor(222, 214, 201).name(), QColor(166, 112, 58).name());
}

} // namespace tavlon12
