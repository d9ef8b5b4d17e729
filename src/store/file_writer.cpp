#include "store/file_writer.h"

quint64 DirectFileWriter::Put(IniPatch patch)
{
    IniFile file(patch.file);
    for (const SectionKeyValue &value : patch.values)
        WriteIniValue(file, value.section, value.key, value.value, true);
    m_ended.append(
        {.file = std::move(patch.file.path), .error = file.Commit(), .ticket = ++m_lastTicket});
    return m_lastTicket;
}

bool DirectFileWriter::Flush(std::chrono::milliseconds /*patience*/)
{
    return true;
}
