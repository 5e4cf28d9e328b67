#include "ui/shown_text.h"

#include <QStringDecoder>

#include <array>

namespace tavlon12 {

namespace {

// 0x80 to 0x9F; every other byte of Windows-1252 is its own code point. The five bytes without a character stay
// controls.
constexpr std::array<char16_t, 32> kWindows1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QString Shown(const std::string& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (!utf8.hasError()) return text;
    text.clear();
    for (char byte : bytes) {
        unsigned char code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? QChar(kWindows1252[code - 0x80u]) : QChar(char16_t{code});
    }
    return text;
}

std::string BytesOf(const QString& text) {
    return text.toUtf8().toStdString();
}

} // namespace tavlon12
