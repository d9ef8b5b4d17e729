#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "zones/zone_listing.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {

const QDate kToday(2026, 11, 16);

/// One row as the web server writes it.
QString Row(const QString &name, const QString &date)
{
    return "<tr><td><a href=\"" + name + "\">" + name + "</a></td><td align=\"right\">" + date
         + " 10:15  </td><td align=\"right\">1.2K</td></tr>\n";
}

QString Listing(const QString &rows)
{
    return "<html><table>\n<tr><th>Name</th></tr>\n" + rows + "</table></html>\n";
}

QStringList Names(const QString &rows, const QString &state = "md")
{
    return ZoneFileNames(Listing(rows), state, kToday);
}

TEST(ListingDate, IsEnglishInEveryMonth)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));

    const char *dates[] = {"01-Jan-2026", "02-Feb-2026", "03-Mar-2026", "04-Apr-2026",
                           "05-May-2026", "06-Jun-2026", "07-Jul-2026", "08-Aug-2026",
                           "09-Sep-2026", "10-Oct-2026", "11-Nov-2026", "12-Dec-2026"};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(ListingDate(QDate(2026, month, month)), dates[month - 1]);

    QLocale::setDefault(before);
}

TEST(ZoneListing, GivesTheFilesInTheirOrder)
{
    EXPECT_EQ(Names(Row("mdz011.txt", "16-Nov-2026") + Row("mdz001.txt", "16-Nov-2026")
                    + Row("mdz504.txt", "16-Nov-2026")),
              (QStringList{"mdz011.txt", "mdz001.txt", "mdz504.txt"}));
}

TEST(ZoneListing, TakesFourDates)
{
    EXPECT_EQ(Names(Row("mdz001.txt", "13-Nov-2026") + Row("mdz002.txt", "14-Nov-2026")
                    + Row("mdz003.txt", "15-Nov-2026") + Row("mdz004.txt", "16-Nov-2026")
                    + Row("mdz005.txt", "17-Nov-2026") + Row("mdz006.txt", "18-Nov-2026")
                    + Row("mdz007.txt", "16-Nov-2025")),
              (QStringList{"mdz002.txt", "mdz003.txt", "mdz004.txt", "mdz005.txt"}));
}

TEST(ZoneListing, TakesDatesAcrossTheTurnOfTheYear)
{
    const QString rows = Row("mdz001.txt", "30-Dec-2026") + Row("mdz002.txt", "31-Dec-2026")
                       + Row("mdz003.txt", "01-Jan-2027") + Row("mdz004.txt", "02-Jan-2027")
                       + Row("mdz005.txt", "01-Jan-2026");

    EXPECT_EQ(ZoneFileNames(Listing(rows), "md", QDate(2027, 1, 1)),
              (QStringList{"mdz001.txt", "mdz002.txt", "mdz003.txt", "mdz004.txt"}));
}

TEST(ZoneListing, TakesDatesInThisSpellingOnly)
{
    EXPECT_EQ(Names(Row("mdz001.txt", "16-NOV-2026") + Row("mdz002.txt", "16-nov-2026")
                    + Row("mdz003.txt", "2026-11-16") + Row("mdz004.txt", "16 Nov 2026")),
              QStringList());
}

TEST(ZoneListing, DropsOtherStatesAndSpellings)
{
    EXPECT_EQ(Names(Row("vaz054.txt", "16-Nov-2026") + Row("MDZ011.txt", "16-Nov-2026")
                    + Row("mdZ011.txt", "16-Nov-2026") + Row("xmdz011.txt", "16-Nov-2026")
                    + Row("/mdz011.txt", "16-Nov-2026") + Row("mdc011.txt", "16-Nov-2026")),
              QStringList());
}

TEST(ZoneListing, DropsRowsWithAnotherMarker)
{
    EXPECT_EQ(Names("<TR><TD><A HREF=\"mdz001.txt\"> 16-Nov-2026"
                    "<tr><td><a href='mdz002.txt\"> 16-Nov-2026"
                    "<tr> <td><a href=\"mdz003.txt\"> 16-Nov-2026"
                    "<tr><td><img/><a href=\"mdz004.txt\"> 16-Nov-2026"),
              QStringList());
}

TEST(ZoneListing, BoundsTheLengthOfTheName)
{
    // The end marker may be anywhere from the third to the fifteenth character.
    EXPECT_EQ(Names(Row("mdz45678901234.txt", "16-Nov-2026")),
              QStringList{"mdz45678901234.txt"}); // at the fifteenth
    EXPECT_EQ(Names(Row("mdz456789012345.txt", "16-Nov-2026")), QStringList());
    EXPECT_EQ(Names(Row("mdz.txt", "16-Nov-2026")), QStringList{"mdz.txt"});    // at the fourth
    EXPECT_EQ(Names(Row("z.txt", "16-Nov-2026"), ""), QStringList());           // at the second
    EXPECT_EQ(Names(Row("az.txt", "16-Nov-2026"), "a"), QStringList{"az.txt"}); // at the third
}

TEST(ZoneListing, DropsRowsWithoutTheEndMarker)
{
    EXPECT_EQ(Names(Row("mdz011.htm", "16-Nov-2026") + Row("mdz011.TXT", "16-Nov-2026")
                    + Row("mdz011.txt?x", "16-Nov-2026")),
              QStringList());
}

TEST(ZoneListing, LooksForTheDateInTheWholeRowAndNoFurther)
{
    EXPECT_EQ(Names(Row("mdz001.txt", "13-Nov-2026") + Row("mdz002.txt", "16-Nov-2026")),
              QStringList{"mdz002.txt"});
    EXPECT_EQ(Names("<tr><td><a href=\"mdz003.txt\">x</a> 13-Nov-2026, copied 16-Nov-2026"),
              QStringList{"mdz003.txt"});
}

TEST(ZoneListing, CountsWhatStandsAheadOfTheFirstMarker)
{
    EXPECT_EQ(ZoneFileNames(u"mdz011.txt\">mdz011.txt</a> 16-Nov-2026", "md", kToday),
              QStringList{"mdz011.txt"});
}

TEST(ZoneListing, MayBeEmpty)
{
    EXPECT_EQ(ZoneFileNames(u"", "md", kToday), QStringList());
    EXPECT_EQ(Names(""), QStringList());
}

TEST(ZoneListing, TracesWhatItLooksAt)
{
    const QString marker = "<tr><td><a href=\"";
    const QString fresh = "mdz011.txt\"> 16-Nov-2026";
    const QString stale = "mdz012.txt\"> 13-Nov-2026";
    const QString other = "vaz054.txt\"> mdz 16-Nov-2026";
    const RecordedTrace trace;

    EXPECT_EQ(ZoneFileNames("top" + marker + fresh + marker + stale + marker + other, "md", kToday),
              QStringList{"mdz011.txt"});

    EXPECT_EQ(trace.lines, (QStringList{"startpos = 0 for top", "startpos = 1 for " + fresh,
                                        "endpos = 7 for " + fresh, "startpos = 1 for " + stale,
                                        "startpos = 14 for " + other}));
}

TEST(ZoneListing, HoldsAsManyRowsAsThereAre)
{
    const QString rows = Row("mdz011.txt", "16-Nov-2026").repeated(20'000)
                       + Row("mdz012.txt", "13-Nov-2026").repeated(20'000);

    EXPECT_EQ(Names(rows).size(), 20'000);
}

} // namespace
