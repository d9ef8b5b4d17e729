#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

/// Where one value stands in a service reply and how it is dressed for display.
///
/// All members are views: the profile that owns the texts must outlive the call. Only the closing
/// tag is held by reference, because GetNodeValue() resolves it in place.
struct NodeQuery
{
    QStringView openTag = {};       ///< Empty: the quantity is not configured, the value is "N/A".
    QString &closeTag;              ///< "" or "%CRLF%", "%CR%", "%LF%" become the line end meant.
    QStringView prefix = {};        ///< Skipped where it follows the opening tag; may be absent.
    QStringView suffix = {};        ///< Empty: nothing is cut.
    QStringView units = {};         ///< "?": the service does not deliver this quantity.
    QStringView factor = {};        ///< Operations such as "*1.8,+32", first to last; "0": none.
    QStringView format = {};        ///< Number picture applied last; empty: none.
    const QDateTime *now = nullptr; ///< Local time, for operation "D": its offset from UTC and its
                                    ///< year count. Null: the operation changes nothing.
};

/// Cuts one value out of `data` and applies the query's factor, format and units.
///
/// Tabs in `data` become single spaces in the caller's copy. Searches are case-sensitive. A
/// missing opening tag is not detected: the search goes on in `data` less the tag's length but
/// one. A missing closing tag keeps everything up to the end of `data` and skips suffix and factor.
/// A step that cannot be done (a cut longer than the text, a number beyond a double) is left out.
///
/// @return a display-ready text, never empty: at worst "N/A".
[[nodiscard]] QString GetNodeValue(QString &data, const NodeQuery &query);

/// The same for `data` that is known to hold no tab, as the parser's working text: seventeen
/// look-outs for tabs in a page of megabytes would cost more than the search itself.
[[nodiscard]] QString GetNodeValueWithoutTabs(QStringView data, const NodeQuery &query);

/// Where the tags of one quantity are. Unlike in GetNodeValue(), a missing tag is detected.
struct NodePlace
{
    qsizetype open = -1;   ///< Index of the opening tag in the data; -1: not found.
    qsizetype close = -1;  ///< Index of the closing tag in the data; -1: not found.
    QStringView text = {}; ///< What GetNodeValue() finds between them, without prefix and outer
                           ///< spaces; empty unless both were found. A view of the data.
};

/// Finds the tags of `query` in `data`. The closing tag counts after the opening tag and prefix.
/// Like GetNodeValue() it resolves `query.closeTag` in place, and so changes the profile that the
/// tag belongs to.
[[nodiscard]] NodePlace FindNode(QStringView data, const NodeQuery &query);
