#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

/// Where one value is in a service's reply, and how it is displayed.
///
/// The members are views, so the profile that owns the texts must outlive the call. The closing tag
/// is a reference because GetNodeValue() resolves it in place.
struct NodeQuery
{
    QStringView openTag = {};       ///< Empty: the quantity is not configured, the value is "N/A".
    QString &closeTag;              ///< "" and "%CRLF%", "%CR%", "%LF%" become that line end.
    QStringView prefix = {};        ///< Skipped, with all before it; need not occur.
    QStringView suffix = {};        ///< Empty: nothing is cut.
    QStringView units = {};         ///< "?": the service does not deliver this quantity.
    QStringView factor = {};        ///< Operations such as "*1.8,+32", in order; "0": none.
    QStringView format = {};        ///< Number picture applied last; empty: none.
    const QDateTime *now = nullptr; ///< Local time for operation "D", which uses its offset from
                                    ///< UTC and its year. Null: "D" changes nothing.
};

/// Cuts one value out of `data` and applies the query's factor, format and units.
///
/// Replaces tabs in `data`, the caller's copy, by single spaces. Searches are case-sensitive. A
/// missing opening tag is not detected: the search goes on after as many characters of `data` as
/// the tag has, less one. Without a closing tag everything up to the end of `data` is kept, and
/// suffix and factor are skipped. A step that is impossible (a cut longer than the text, a number
/// beyond a double) is skipped.
///
/// @return a text ready for display, never empty: at worst "N/A".
[[nodiscard]] QString GetNodeValue(QString &data, const NodeQuery &query);

/// The same for `data` without tabs, such as the parser's working text: looking for tabs seventeen
/// times in a page of megabytes would cost more than the search itself.
[[nodiscard]] QString GetNodeValueWithoutTabs(QStringView data, const NodeQuery &query);

/// Where the tags of one quantity are. Unlike in GetNodeValue(), a missing tag is detected.
struct NodePlace
{
    qsizetype open = -1;   ///< Index of the opening tag in the data; -1: not found.
    qsizetype close = -1;  ///< Index of the closing tag in the data; -1: not found.
    QStringView text = {}; ///< What GetNodeValue() finds between them, without prefix and outer
                           ///< spaces; empty unless both were found. A view of the data.
};

/// Finds the tags of `query` in `data`, the closing tag after the opening tag and the prefix. Like
/// GetNodeValue() it resolves `query.closeTag` in place, which changes the profile that owns the
/// tag.
[[nodiscard]] NodePlace FindNode(QStringView data, const NodeQuery &query);
