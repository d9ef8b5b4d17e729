#include "store/private_profile.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

#include "fuzz_text.h"

namespace {

bool IsPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c > u' ' && c < u'\x7F' && c != u'"' && c != u'\''; });
}

} // namespace

// The contract: an image that nothing was written to keeps its bytes; what was written is read
// back, from the image and from a file made of its bytes; other keys keep their values.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzedDataProvider input(bytes, size);
    const auto codePage = input.ConsumeBool() ? CodePage::Utf8 : CodePage::Windows1252;
    const QString value = TakeText(input, 64);
    const std::string rest = input.ConsumeRemainingBytesAsString();
    const QByteArray file(rest.data(), qsizetype(rest.size()));

    PrivateProfile profile(file, codePage);
    if (profile.Bytes() != file)
        std::abort();

    const QString other = profile.Value(u"Weather", u"CITY", u"(none)");
    profile.SetValue(u"Weather", u"TEMP", value);
    if (!IsPlain(value)) // quotes, blanks and line ends are the writer's business
        return 0;
    const PrivateProfile again(profile.Bytes(), codePage);
    for (const PrivateProfile *image :
         std::initializer_list<const PrivateProfile *>{&profile, &again}) {
        if (image->Value(u"weather", u"temp", u"(none)") != value)
            std::abort();
        if (image->Value(u"Weather", u"CITY", u"(none)") != other)
            std::abort();
    }
    return 0;
}
