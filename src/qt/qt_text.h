#pragma once

#include <QString>
#include <QStringDecoder>

#include <string_view>

namespace krv::qt {

/// UTF-8 as Qt's text. Qt's own way drops a first U+FEFF, which would change a host's text by
/// showing it.
inline QString qt_text(std::string_view utf8) {
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

} // namespace krv::qt
