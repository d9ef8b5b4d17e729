// What the service is compared with: a program without a window that links the same libraries and
// makes one transfer, of the URL that it is given.

#include "net/curl_transfers.h"

#include <QCoreApplication>
#include <QTimer>

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    CurlTransfers http;
    TransferHandle handle = http.Net_HTTPThreadOpen(QStringLiteral("80"));
    http.Net_HTTPThreadGet(handle, QCoreApplication::arguments().value(1));
    QTimer poll;
    poll.callOnTimeout([&] {
        if (handle != 0 && http.Net_HTTPThreadIsDone(handle)) {
            http.Net_HTTPThreadClose(handle);
            handle = 0;
        }
    });
    poll.start(250);
    return QCoreApplication::exec();
}
