#include "desktop/DesktopShell.h"

#include "base/Failure.h"
#include "base/UpperCase.h"
#include "platform/NativePath.h"

#include <QByteArray>
#include <QDesktopServices>
#include <QUrl>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>

namespace quillmark {

namespace {

constexpr std::array<std::string_view, 3> WebSchemes = {"HTTP:", "HTTPS:", "FTP:"};
/// What stands for itself in a web address, beside letters, digits, "-", ".", "_" and "~".
constexpr const char* AddressCharacters = ":/?#[]@!$&'()*+,;=";

bool isWebAddress(std::string_view target) {
    return std::any_of(WebSchemes.begin(), WebSchemes.end(), [target](std::string_view scheme) {
        return upperAscii(target.substr(0, scheme.size())) == scheme;
    });
}

/// The bytes as a part of a URL, so that a name in any code leads back to its file.
QByteArray encoded(std::string_view bytes, const char* kept) {
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())).toPercentEncoding(kept);
}

QUrl webAddress(std::string_view target) {
    QByteArray address = encoded(target, AddressCharacters);
    // A page may name the address encoded already; a "%" of another kind is left to the tolerance.
    address.replace("%25", "%");
    return QUrl::fromEncoded(address, QUrl::TolerantMode);
}

QUrl fileAddress(std::string_view target) {
    const std::filesystem::path path = nativePath(target);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        throw fileNotFound();
    }
    return QUrl::fromEncoded("file://" + encoded(path.string(), "/"));
}

} // namespace

void DesktopShell::open(std::string_view target) {
    const QUrl url = isWebAddress(target) ? webAddress(target) : fileAddress(target);
    if (!QDesktopServices::openUrl(url)) {
        throw Failure(1030, std::string("There is no program to open ").append(target));
    }
}

} // namespace quillmark
