#pragma once

#include <QtGlobal>

#include <string>

/// While one of these lives, looking up any name that ends in ".silent.test" takes until the object
/// goes away, as with a name server that does not answer; then the look-up fails. Without one, such
/// a name fails at once. All other names go to the system.
///
/// It intercepts the C library's getaddrinfo() in the test program.
class SilentNameServer
{
public:
    SilentNameServer();
    ~SilentNameServer();
    Q_DISABLE_COPY_MOVE(SilentNameServer)

    [[nodiscard]] static int Waiting(); ///< Look-ups that wait at this moment.
    [[nodiscard]] static std::string Url() { return "http://host.silent.test/"; }
};
