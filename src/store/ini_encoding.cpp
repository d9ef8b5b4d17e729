#include "store/ini_encoding.h"

#include "core/text.h"
#include "core/windows1252.h"
#include "store/utf16_units.h"

#include <QStringDecoder>

namespace {

constexpr QByteArrayView kUtf8Mark = "\xEF\xBB\xBF";
constexpr QByteArrayView kUtf16Mark = "\xFF\xFE";

QString FromUtf8(QByteArrayView bytes)
{
    // A mark inside the file is a character like any other, hence the flag.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

} // namespace

QStringView UpToNul(QStringView text)
{
    const qsizetype nul = text.indexOf(u'\0');
    return nul < 0 ? text : text.first(nul);
}

IniEncoding::IniEncoding(QByteArrayView file, CodePage codePage) : m_codePage(codePage)
{
    if (file.startsWith(kUtf16Mark)) {
        m_form = Form::Utf16Le;
        m_mark = kUtf16Mark.toByteArray();
    } else if (codePage == CodePage::Windows1252) {
        m_form = Form::Windows1252;
    } else {
        if (file.startsWith(kUtf8Mark))
            m_mark = kUtf8Mark.toByteArray();
        m_form = file.sliced(m_mark.size()).isValidUtf8() ? Form::Utf8 : Form::Windows1252;
    }
}

QString IniEncoding::Decoded(QByteArrayView stored) const
{
    switch (m_form) {
    case Form::Utf8:
        return FromUtf8(stored);
    case Form::Windows1252:
        return FromWindows1252(stored);
    case Form::Utf16Le:
        break;
    }
    return InCodePage(FromUnits(stored));
}

QByteArray IniEncoding::Encoded(QStringView text) const
{
    text = UpToNul(text);
    switch (m_form) {
    case Form::Utf8:
        return WithoutLoneSurrogates(text.toString()).toUtf8();
    case Form::Windows1252:
        return ToWindows1252(text);
    case Form::Utf16Le:
        break;
    }
    return ToUnits(InCodePage(text));
}

/// A UTF-16 file can hold every character, but only those of the code page pass in and out.
QString IniEncoding::InCodePage(QStringView text) const
{
    return m_codePage == CodePage::Windows1252 ? FromWindows1252(ToWindows1252(text))
                                               : WithoutLoneSurrogates(text.toString());
}
