#include "forecast/forecast_text.h"
#include "fuzz_input.h"

namespace {

QString PlainForecast(QString text, const QString &zoneCode)
{
    const qsizetype zone = text.indexOf(zoneCode.toUpper()) + 1;
    text = text.mid(zone + 5);
    text = text.mid(text.indexOf('\n') + 1);
    text.replace("\n", "\r\n").replace("...", ". ");
    text.replace("\r\n.", "\r\n\r\n").replace(". .", "\r\n");
    if (text.contains("$$"))
        text = text.left(text.indexOf("$$"));
    if (text.indexOf("&&") > 0)
        text = text.left(text.indexOf("&&"));
    return text;
}

} // namespace

// The contract: the end of the product and its tables never go on air, every line ends in CR LF,
// and the text is what the steps make one by one.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QString zoneCode = TextOf(input.Line());
    const QString product = TextOf(input.Rest());

    const QString text = CleanForecast(product, zoneCode);

    Demand(!text.contains("$$"), "nothing from the end mark on");
    Demand(text.indexOf("&&") <= 0, "nothing from the tables' mark on");
    Demand(text.count('\n') == text.count("\r\n"), "lines end in CR LF");
    Demand(text == PlainForecast(product, zoneCode), "the plain version's text");
    return 0;
}
