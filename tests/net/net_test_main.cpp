#include <QtGlobal>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    // Nothing may leave this machine through a proxy of whoever runs the tests.
    for (const char *name : {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY",
                             "no_proxy", "NO_PROXY", "TAVRIN_CONTACT"})
        qunsetenv(name);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
