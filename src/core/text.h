#pragma once

#include <QString>
#include <QStringView>

/// `text` without the spaces (U+0020) at its ends; tabs and line ends stay.
[[nodiscard]] QStringView TrimSpaces(QStringView text);

/// `text` with every "%YEAR%" (this case only) replaced by `year` in plain decimal form.
[[nodiscard]] QString WithYear(QString text, int year);
