#include "core/trace.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"

#include <gtest/gtest.h>

namespace {

TEST(Trace, JoinsItsParts)
{
    const RecordedTrace trace;

    Trace(u"a=", 12, u" b=", 0.7 + 0.1, u" c=", QString("x\ny"));

    EXPECT_EQ(trace.lines, QStringList{"a=12 b=0.8 c=x\ny"});
}

TEST(Trace, GoesToNobodyWithoutAListener)
{
    {
        const RecordedTrace trace;
        Trace(u"heard");
        EXPECT_EQ(trace.lines.size(), 1);
    }

    Trace(u"not heard"); // must not touch the listener that is gone
    EXPECT_EQ(SetTraceListener(nullptr), nullptr);
}

TEST(Trace, ReturnsToTheListenerBefore)
{
    const RecordedTrace outer;
    {
        const RecordedTrace inner;
        Trace(u"inner");
        EXPECT_EQ(inner.lines, QStringList{"inner"});
    }

    Trace(u"outer");

    EXPECT_EQ(outer.lines, QStringList{"outer"});
}

} // namespace
