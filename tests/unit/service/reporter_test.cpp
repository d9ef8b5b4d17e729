#include "service/reporter.h"
#include "support/qt_printers.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

class ServiceReporter : public testing::Test
{
protected:
    QStringList Said() { return std::exchange(m_said, {}); }

    void Fail(Product product, const QString &failure)
    {
        reporter.Ended({.product = product, .failure = failure});
    }
    void Work(Product product) { reporter.Ended({.product = product}); }

    Reporter reporter{[this](const QString &line) { m_said.append(line); }};

private:
    QStringList m_said;
};

TEST_F(ServiceReporter, SaysNothingOfWhatWorks)
{
    Work(Product::Weather);
    Work(Product::Forecast);
    reporter.Missing(Product::Weather, {});

    EXPECT_EQ(Said(), QStringList());
}

TEST_F(ServiceReporter, SaysAFailureOnceAndItsEnd)
{
    Fail(Product::Weather, "HTTP 404");
    Fail(Product::Weather, "HTTP 404");
    Fail(Product::Weather, "HTTP 500");
    EXPECT_EQ(Said(), QStringList("the weather failed: HTTP 404"));

    Work(Product::Weather);
    Work(Product::Weather);
    EXPECT_EQ(Said(), QStringList("the weather works again"));

    Fail(Product::Weather, "HTTP 500");
    EXPECT_EQ(Said(), QStringList("the weather failed: HTTP 500"));
}

TEST_F(ServiceReporter, KeepsTheProductsApart)
{
    Fail(Product::Weather, "HTTP 404");
    Work(Product::Forecast);
    Fail(Product::Forecast, "HTTP 403");

    EXPECT_EQ(Said(),
              QStringList({"the weather failed: HTTP 404", "the forecast failed: HTTP 403"}));
}

TEST_F(ServiceReporter, SaysWhatIsMissingOnceUntilItIsSomethingElse)
{
    reporter.Missing(Product::Weather, "location1");
    reporter.Missing(Product::Weather, "location1");
    Fail(Product::Weather, "no address"); // because it is missing
    EXPECT_EQ(Said(), QStringList("the weather is not set up: location1"));

    reporter.Missing(Product::Weather, "location2");
    EXPECT_EQ(Said(), QStringList("the weather is not set up: location2"));

    reporter.Missing(Product::Weather, {});
    EXPECT_EQ(Said(), QStringList());
    Work(Product::Weather);
    EXPECT_EQ(Said(), QStringList("the weather works again"));
}

TEST_F(ServiceReporter, RepeatsWhatIsStillMissing)
{
    reporter.Missing(Product::Forecast, "ForecastZone");
    (void)Said();

    reporter.Repeat();
    reporter.Missing(Product::Forecast, "ForecastZone");

    EXPECT_EQ(Said(), QStringList("the forecast is not set up: ForecastZone"));
}

} // namespace
