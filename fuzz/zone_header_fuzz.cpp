#include "fuzz_input.h"
#include "zones/zone_header.h"

#include <QStringList>

namespace {

bool EndsHeader(const QString &line)
{
    return line.isEmpty() || (line.front() >= '0' && line.front() <= '9');
}

std::optional<QString> PlainEntry(const QString &file, const QString &fileName)
{
    const QStringList lines = file.split('\n');
    const QString zone = QString(fileName).replace(".txt", "").toUpper();
    qsizetype header = 0;
    while (header < lines.size() && lines[header].toUpper().indexOf(zone) != 0)
        ++header;
    if (header + 1 >= lines.size())
        return std::nullopt;
    QString entry = zone + ":  " + lines[header + 1];
    for (qsizetype i = header + 2; i < lines.size() && !EndsHeader(lines[i]); ++i) {
        if (entry.endsWith('-'))
            entry = entry.left(entry.size() - 1) + ", ";
        entry += lines[i];
    }
    if (entry.endsWith('-'))
        entry.chop(1);
    return entry.replace("...", ", ");
}

} // namespace

// The contract: an entry is one line, begins with the zone code, a colon and two blanks, and holds
// no run of three periods that the file had.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QString fileName = TextOf(input.Line());
    const QString file = TextOf(input.Rest());

    const std::optional<QString> entry = ZoneEntry(file, fileName);

    const std::optional<QString> plain = PlainEntry(file, fileName);
    Demand(entry.has_value() == plain.has_value(), "an entry where the plain version has one");
    if (!entry)
        return 0;
    Demand(*entry == *plain, "the plain version's entry");
    Demand(!entry->contains('\n') && !entry->contains("..."), "one line without ellipses");
    return 0;
}
