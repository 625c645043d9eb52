#include "windows/shared/Text.h"

#include <QStringDecoder>

#include <array>

namespace quillmark {

namespace {

/// 0x80 to 0x9F of Windows-1252 (the CP1252.TXT of unicode.org); the rest of it is
/// Latin-1.
constexpr std::array<char16_t, 32> Upper = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

constexpr qsizetype LongestTip = 2000;
constexpr std::size_t LongestBrief = 4000;

/// Whether a byte of UTF-8 belongs to the character that began before it.
bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

QString fromWindows1252(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? QChar(Upper.at(code - 0x80U)) : QChar(code);
    }
    return text;
}

} // namespace

QString shown(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text =
        decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoder.hasError() ? fromWindows1252(bytes) : text;
}

QString shownBriefly(std::string_view bytes) {
    if (bytes.size() <= LongestBrief) {
        return shown(bytes);
    }
    std::size_t headEnd = LongestBrief / 2;
    std::size_t tailBegin = bytes.size() - LongestBrief / 2;
    while (headEnd > 0 && continues(bytes[headEnd])) {
        --headEnd;
    }
    while (tailBegin < bytes.size() && continues(bytes[tailBegin])) {
        ++tailBegin;
    }
    return shown(bytes.substr(0, headEnd)) + " ... " + shown(bytes.substr(tailBegin));
}

std::string typed(const QString& text) {
    return text.toStdString();
}

QString plainCaption(const QString& text) {
    return QString(text).replace('&', "&&").replace('\t', ' ');
}

QString plainToolTip(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    const QString tip = text.size() > LongestTip ? text.first(LongestTip) + "..." : text;
    return "<p style='white-space:pre-wrap'>" + tip.toHtmlEscaped() + "</p>";
}

} // namespace quillmark
