#include "core/picture_section.h"

#include <algorithm>
#include <utility>

namespace {

bool IsPlace(QChar c)
{
    return c == u'0' || c == u'#';
}

/// Length of the quoted text or escaped character at the front of `picture`; 0: neither.
qsizetype VerbatimLength(QStringView picture)
{
    if (picture.front() == u'\\')
        return std::min<qsizetype>(2, picture.size());
    if (picture.front() != u'"')
        return 0;
    const qsizetype end = picture.indexOf(u'"', 1);
    return end < 0 ? picture.size() : end + 1;
}

QStringView VerbatimText(QStringView verbatim)
{
    if (verbatim.front() == u'\\')
        return verbatim.sliced(1);
    return verbatim.size() > 1 && verbatim.back() == u'"' ? verbatim.sliced(1).chopped(1)
                                                          : verbatim.sliced(1);
}

/// Length of the exponent sign and its places at the front of `picture` ("E+00"); 0: none.
qsizetype ExponentLength(QStringView picture)
{
    if (picture.size() < 3 || (picture[0] != u'E' && picture[0] != u'e')
        || (picture[1] != u'+' && picture[1] != u'-'))
        return 0;
    qsizetype end = 2;
    while (end < picture.size() && IsPlace(picture[end]))
        ++end;
    return end > 2 ? end : 0;
}

/// Parses a section, element by element.
class SectionReader
{
public:
    explicit SectionReader(QStringView picture) : m_rest(picture)
    {
        m_section.elements.reserve(static_cast<std::size_t>(picture.size()));
    }

    PictureSection Read()
    {
        while (!m_rest.isEmpty())
            m_rest = m_rest.sliced(ReadElement());
        return std::move(m_section);
    }

private:
    /// Reads the element at the front of m_rest. @return its length.
    qsizetype ReadElement();
    void AddPlace(QChar c);
    void AddMark(QChar c);
    void Add(PictureElement::Kind kind, QStringView text = {}, int width = 0)
    {
        m_section.elements.push_back({kind, text, width});
    }

    QStringView m_rest;
    PictureSection m_section;
    bool m_behindPoint = false;
    bool m_comma = false; // after an integer place, not yet between two
};

qsizetype SectionReader::ReadElement()
{
    if (const qsizetype length = VerbatimLength(m_rest); length > 0) {
        Add(PictureElement::Kind::Literal, VerbatimText(m_rest.first(length)));
        return length;
    }
    if (const qsizetype length = ExponentLength(m_rest); length > 0 && !m_section.exponent) {
        m_section.exponent = true;
        Add(PictureElement::Kind::Exponent, m_rest.first(2), static_cast<int>(length) - 2);
        return length;
    }
    if (IsPlace(m_rest.front()))
        AddPlace(m_rest.front());
    else
        AddMark(m_rest.front());
    return 1;
}

void SectionReader::AddPlace(QChar c)
{
    Add(c == u'0' ? PictureElement::Kind::Zero : PictureElement::Kind::Digit);
    if (m_behindPoint) {
        ++m_section.decimalPlaces;
        if (c == u'0')
            m_section.leastDecimals = m_section.decimalPlaces;
        return;
    }
    ++m_section.integerPlaces;
    if (c == u'0' || m_section.leastIntegerDigits > 0)
        ++m_section.leastIntegerDigits;
    m_section.grouped = m_section.grouped || m_comma;
}

void SectionReader::AddMark(QChar c)
{
    if (c == u'.' && !m_behindPoint) {
        m_behindPoint = true;
        Add(PictureElement::Kind::Point);
    } else if (c == u',' && !m_behindPoint) {
        m_comma = m_section.integerPlaces > 0;
    } else {
        m_section.percents += c == u'%' ? 1 : 0;
        Add(PictureElement::Kind::Literal, m_rest.first(1));
    }
}

} // namespace

std::array<QStringView, 3> SplitSections(QStringView picture)
{
    std::array<QStringView, 3> sections;
    std::size_t section = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < picture.size() && section < sections.size();) {
        const qsizetype verbatim = VerbatimLength(picture.sliced(i));
        if (verbatim == 0 && picture[i] == u';') {
            sections[section++] = picture.sliced(start, i - start);
            start = i + 1;
        }
        i += std::max<qsizetype>(verbatim, 1);
    }
    if (section < sections.size())
        sections[section] = picture.sliced(start);
    return sections;
}

PictureSection ReadSection(QStringView picture)
{
    return SectionReader(picture).Read();
}
