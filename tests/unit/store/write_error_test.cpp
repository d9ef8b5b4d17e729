#include "store/write_error.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

TEST(WriteError, IsNoneByDefault)
{
    EXPECT_FALSE(WriteError().IsError());
    EXPECT_TRUE((WriteError{WriteError::Kind::Other, {}}.IsError()));
}

struct KindCase
{
    const char *name;
    int number = 0;
    WriteError::Kind kind = WriteError::Kind::None;
};

void PrintTo(const KindCase &c, std::ostream *out)
{
    *out << c.name;
}

class WriteErrorKindOf : public testing::TestWithParam<KindCase>
{
};

TEST_P(WriteErrorKindOf, IsWhatTheUserCanDoSomethingAbout)
{
    EXPECT_EQ(WriteErrorKind(GetParam().number), GetParam().kind);
}

using Kind = WriteError::Kind;

const KindCase kCases[] = {
    {"NoSpaceLeft", ENOSPC, Kind::DiskFull},
    {"QuotaUsedUp", EDQUOT, Kind::DiskFull},
    {"AccessDenied", EACCES, Kind::NoRight},
    {"NotPermitted", EPERM, Kind::NoRight},
    {"FileSystemIsReadOnly", EROFS, Kind::NoRight},
    {"FolderInItsPlace", EISDIR, Kind::NotAFile},
    {"LinksInACircle", ELOOP, Kind::NotAFile},
    {"NoFolder", ENOENT, Kind::Gone},
    {"FileInPlaceOfTheFolder", ENOTDIR, Kind::Gone},
    {"ShareWentAway", ESTALE, Kind::Gone},
    {"BadDisk", EIO, Kind::Other},
    {"TooManyOpenFiles", EMFILE, Kind::Other},
    {"Nothing", 0, Kind::Other}, // something went wrong all the same
};

INSTANTIATE_TEST_SUITE_P(Table, WriteErrorKindOf, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
