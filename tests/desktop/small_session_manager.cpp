// A session manager for one program, as small as the protocol allows. It prints where it can be
// found and then what the program says, one line each, and reads its orders from its input.

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

// libICE exports this name and declares it nowhere.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" int _IceTransNoListen(const char *protocol);

namespace {

SmsConn client = nullptr;
bool isForCheckpoint = false; // what the program is saving for
QList<IceConn> connections;

void Say(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

Status Register(SmsConn connection, SmPointer /*data*/, char *previousId)
{
    client = connection;
    char ownId[] = "id-of-the-first-start";
    SmsRegisterClientReply(connection, previousId != nullptr ? previousId : ownId);
    if (previousId == nullptr) // a new client is asked at once how to restart it
        SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    isForCheckpoint = previousId == nullptr;
    Say(QByteArray("registered ") + (previousId != nullptr ? previousId : "as new"));
    std::free(previousId);
    return True;
}

void LetInteract(SmsConn connection, SmPointer /*data*/, int /*dialogType*/)
{
    Say("interacts");
    SmsInteract(connection);
}

void InteractDone(SmsConn /*connection*/, SmPointer /*data*/, Bool cancels)
{
    Say(cancels != 0 ? "cancels" : "has interacted");
}

void IgnoreRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}

void GoOnWithPhase2(SmsConn connection, SmPointer /*data*/)
{
    SmsSaveYourselfPhase2(connection);
}

void TakeSaved(SmsConn connection, SmPointer /*data*/, Bool success)
{
    if (isForCheckpoint)
        SmsSaveComplete(connection);
    Say(success != 0 ? "saved" : "could not save");
}

void TakeProperties(SmsConn /*connection*/, SmPointer /*data*/, int count, SmProp **properties)
{
    for (int i = 0; i < count; ++i) {
        QByteArrayList values;
        for (int j = 0; j < properties[i]->num_vals; ++j) {
            const SmPropValue &value = properties[i]->vals[j];
            values.append(QByteArray(static_cast<const char *>(value.value), value.length));
        }
        if (QByteArray(properties[i]->type) != SmCARD8)
            Say(QByteArray("property ") + properties[i]->name + '\t' + values.join('\t'));
        SmFreeProperty(properties[i]);
    }
    std::free(static_cast<void *>(properties));
}

void IgnoreDeletion(SmsConn /*connection*/, SmPointer /*data*/, int count, char **names)
{
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(static_cast<void *>(names));
}

void ReturnNone(SmsConn connection, SmPointer /*data*/)
{
    SmsReturnProperties(connection, 0, nullptr);
}

void Close(SmsConn connection, SmPointer /*data*/, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    IceConn const ice = SmsGetIceConnection(connection);
    client = nullptr;
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(ice, False);
    IceCloseConnection(ice);
    Say("closed");
}

Status TakeClient(SmsConn /*connection*/, SmPointer /*data*/, unsigned long *mask,
                  SmsCallbacks *callbacks, char ** /*refusal*/)
{
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
          | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask
          | SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask
          | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client.callback = Register;
    callbacks->interact_request.callback = LetInteract;
    callbacks->interact_done.callback = InteractDone;
    callbacks->save_yourself_request.callback = IgnoreRequest;
    callbacks->save_yourself_phase2_request.callback = GoOnWithPhase2;
    callbacks->save_yourself_done.callback = TakeSaved;
    callbacks->close_connection.callback = Close;
    callbacks->set_properties.callback = TakeProperties;
    callbacks->delete_properties.callback = IgnoreDeletion;
    callbacks->get_properties.callback = ReturnNone;
    return True;
}

Bool AllowEveryone(char * /*host*/)
{
    return True;
}

void WatchConnections(IceConn connection, IcePointer /*data*/, Bool opening, IcePointer * /*own*/)
{
    if (opening != 0)
        connections.append(connection);
    else
        connections.removeAll(connection);
}

void Obey(const QByteArray &order)
{
    if (client == nullptr)
        return Say("no client for " + order);
    isForCheckpoint = order == "checkpoint";
    if (order == "checkpoint")
        SmsSaveYourself(client, SmSaveBoth, False, SmInteractStyleNone, False);
    else if (order == "log out")
        SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleAny, False);
    else if (order == "cancel")
        SmsShutdownCancelled(client);
    else if (order == "die")
        SmsDie(client);
    else
        Say("unknown order " + order);
}

/// @return false when whoever gives orders is gone.
bool ReadOrders()
{
    static QByteArray unread;
    std::array<char, 256> bytes{};
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0)
        return false;
    unread.append(bytes.data(), count);
    for (qsizetype end = 0; (end = unread.indexOf('\n')) >= 0; unread.remove(0, end + 1))
        Obey(unread.first(end));
    return true;
}

void Accept(IceListenObj listener)
{
    IceAcceptStatus status = IceAcceptSuccess;
    IceConn const connection = IceAcceptConnection(listener, &status);
    while (connection != nullptr && IceConnectionStatus(connection) == IceConnectPending)
        IceProcessMessages(connection, nullptr, nullptr);
}

void Process(IceConn connection)
{
    if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesIOError)
        return;
    client = nullptr;
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
    Say("lost");
}

bool HasInput(const pollfd &entry)
{
    return entry.revents != 0;
}

/// What can be read from: first the orders, then the listeners, then the connections.
QList<pollfd> Sources(const QList<IceListenObj> &listeners)
{
    QList<pollfd> sources{{STDIN_FILENO, POLLIN, 0}};
    for (IceListenObj const listener : listeners)
        sources.append({IceGetListenConnectionNumber(listener), POLLIN, 0});
    for (IceConn const connection : connections)
        sources.append({IceConnectionNumber(connection), POLLIN, 0});
    return sources;
}

/// Waits for orders and messages until nobody gives orders any more.
void Serve(const QList<IceListenObj> &listeners)
{
    while (true) {
        const QList<IceConn> open = connections;
        QList<pollfd> sources = Sources(listeners);
        if (::poll(sources.data(), nfds_t(sources.size()), -1) < 0)
            return;
        if (HasInput(sources.takeFirst()) && !ReadOrders())
            return;
        for (IceListenObj const listener : listeners) {
            if (HasInput(sources.takeFirst()))
                Accept(listener);
        }
        for (IceConn const connection : open) {
            if (HasInput(sources.takeFirst()) && connections.contains(connection))
                Process(connection);
        }
    }
}

} // namespace

int main()
{
    std::array<char, 256> problem{};
    _IceTransNoListen("tcp"); // only sockets of this host
    IceSetIOErrorHandler([](IceConn) {});
    IceAddConnectionWatch(WatchConnections, nullptr);
    int count = 0;
    IceListenObj *listeners = nullptr;
    if (SmsInitialize("tests", "1", TakeClient, nullptr, AllowEveryone, problem.size(),
                      problem.data())
            == 0
        || IceListenForConnections(&count, &listeners, problem.size(), problem.data()) == 0) {
        std::fprintf(stderr, "cannot manage a session: %s\n", problem.data());
        return 1;
    }
    char *const address = IceComposeNetworkIdList(count, listeners);
    std::for_each_n(listeners, count, [](IceListenObj listener) {
        IceSetHostBasedAuthProc(listener, AllowEveryone);
    });
    Say(address);
    Serve(QList<IceListenObj>(listeners, listeners + count));
    std::free(address);
    IceFreeListenObjs(count, listeners);
    return 0;
}
