#include "net/transfer_thread.h"

#include "net/curl_handles.h"
#include "net/fetch.h"

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

constexpr auto kLongestWait = std::chrono::milliseconds(1h);
constexpr auto kPauseAfterFailure = 1s;

// As many as the program ever has open at once: the six of a zone list, weather and forecast.
// libcurl's own limit follows the number of running transfers, and closes some whenever all have
// ended.
constexpr long kKeptConnections = 8;

/// Initialises libcurl once for the process. It is never cleaned up: others may use it, too.
bool CurlIsReady()
{
    static const CURLcode result = curl_global_init(CURL_GLOBAL_DEFAULT);
    return result == CURLE_OK;
}

/// Leaves signals to the program's first thread. This also blocks SIGPIPE, which the system sends
/// on a write to a connection that the other side has closed.
void BlockSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

class TransferThread::Engine
{
public:
    explicit Engine(TransferOptions options);
    ~Engine();
    Q_DISABLE_COPY_MOVE(Engine)

    enum class Order
    {
        Start,
        Stop
    };

    [[nodiscard]] bool IsUsable() const { return m_usable; }
    void Post(Order order, std::shared_ptr<Transfer> transfer);

private:
    struct Command
    {
        Order order = Order::Start;
        std::shared_ptr<Transfer> transfer = {};
    };

    void Run(const std::stop_token &stop);
    void CarryOutCommands();
    void Begin(std::shared_ptr<Transfer> transfer);
    void Drop(const std::shared_ptr<Transfer> &transfer);
    void Drive();
    void End(Fetch &fetch, Reply reply);
    void EndAll(CURLMcode code);
    [[nodiscard]] std::chrono::milliseconds EndIdle();
    void Wait(std::chrono::milliseconds longest, const std::stop_token &stop);

    const TransferOptions m_options;
    std::vector<std::unique_ptr<Fetch>> m_fetches; ///< Network thread only.

    std::mutex m_mutex;
    std::condition_variable_any m_posted;
    std::vector<Command> m_commands; ///< Guarded by m_mutex.
    MultiHandle m_multi; ///< Guarded by m_mutex where it is woken and where it is closed.
    const bool m_usable;
    std::jthread m_network; ///< Last: joined before what it uses is destroyed.
};

TransferThread::Engine::Engine(TransferOptions options)
    : m_options(std::move(options))
    , m_multi(CurlIsReady() ? curl_multi_init() : nullptr)
    , m_usable(m_multi != nullptr
               && curl_multi_setopt(m_multi.get(), CURLMOPT_MAXCONNECTS, kKeptConnections)
                      == CURLM_OK)
{
    if (m_usable)
        m_network = std::jthread([this](const std::stop_token &stop) { Run(stop); });
}

TransferThread::Engine::~Engine()
{
    m_network.request_stop();
    const std::scoped_lock lock(m_mutex);
    if (m_multi != nullptr)
        curl_multi_wakeup(m_multi.get());
}

void TransferThread::Engine::Post(Order order, std::shared_ptr<Transfer> transfer)
{
    const std::scoped_lock lock(m_mutex);
    m_commands.push_back({.order = order, .transfer = std::move(transfer)});
    if (m_multi != nullptr)
        curl_multi_wakeup(m_multi.get());
    m_posted.notify_one();
}

void TransferThread::Engine::Run(const std::stop_token &stop)
{
    BlockSignals();
    while (!stop.stop_requested()) {
        CarryOutCommands();
        Drive();
        Wait(EndIdle(), stop);
    }
    m_fetches.clear();
    // Closed here, where SIGPIPE is blocked: closing a TLS connection writes to it.
    const std::scoped_lock lock(m_mutex);
    m_multi.reset();
}

void TransferThread::Engine::CarryOutCommands()
{
    std::vector<Command> commands;
    {
        const std::scoped_lock lock(m_mutex);
        commands.swap(m_commands);
    }
    for (Command &command : commands) {
        switch (command.order) {
        case Order::Start:
            Begin(std::move(command.transfer));
            break;
        case Order::Stop:
            Drop(command.transfer);
            break;
        }
    }
}

void TransferThread::Engine::Begin(std::shared_ptr<Transfer> transfer)
{
    auto fetch = std::make_unique<Fetch>(std::move(transfer), m_multi.get(), m_options);
    m_fetches.push_back(std::move(fetch));
    if (auto reply = m_fetches.back()->Start())
        End(*m_fetches.back(), *std::move(reply));
}

void TransferThread::Engine::Drop(const std::shared_ptr<Transfer> &transfer)
{
    std::erase_if(m_fetches, [&](const auto &fetch) { return fetch->Target() == transfer; });
}

void TransferThread::Engine::Drive()
{
    int running = 0;
    const CURLMcode code = curl_multi_perform(m_multi.get(), &running);
    if (code != CURLM_OK)
        EndAll(code);

    int waiting = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_multi.get(), &waiting)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        char *owner = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &owner);
        auto *const fetch = reinterpret_cast<Fetch *>(owner);
        if (auto reply = fetch->Ended(message->data.result))
            End(*fetch, *std::move(reply));
    }
}

/// The easy handle goes first: whoever sees the reply may rely on that.
void TransferThread::Engine::End(Fetch &fetch, Reply reply)
{
    const std::shared_ptr<Transfer> transfer = fetch.Target();
    fetch.Describe(reply);
    Drop(transfer);
    transfer->Publish(std::move(reply));
}

void TransferThread::Engine::EndAll(CURLMcode code)
{
    while (!m_fetches.empty()) {
        End(*m_fetches.back(), {.error = CURLE_FAILED_INIT,
                                .errorText = QString::fromUtf8(curl_multi_strerror(code))});
    }
}

/// Ends the fetches that have received nothing for too long.
/// @return how long the others may still wait.
std::chrono::milliseconds TransferThread::Engine::EndIdle()
{
    const auto now = Fetch::Clock::now();
    auto next = now + kLongestWait;
    const auto fetches = m_fetches.size();
    for (size_t i = fetches; i-- > 0;) { // backwards: ending one takes it out of the list
        Fetch &fetch = *m_fetches[i];
        const auto deadline = fetch.IdleDeadline();
        if (deadline <= now)
            End(fetch, fetch.IdleReply());
        else
            next = std::min(next, deadline);
    }
    return std::chrono::ceil<std::chrono::milliseconds>(next - now);
}

void TransferThread::Engine::Wait(std::chrono::milliseconds longest, const std::stop_token &stop)
{
    const int milliseconds = static_cast<int>(longest.count());
    if (curl_multi_poll(m_multi.get(), nullptr, 0, milliseconds, nullptr) == CURLM_OK)
        return;
    // Without memory or descriptors waiting is impossible: look again later, do not spin.
    std::unique_lock lock(m_mutex);
    m_posted.wait_for(lock, stop, kPauseAfterFailure, [this] { return !m_commands.empty(); });
}

TransferThread::TransferThread(TransferOptions options)
    : m_engine(std::make_unique<Engine>(std::move(options)))
{}

TransferThread::~TransferThread() = default;

bool TransferThread::IsUsable() const
{
    return m_engine->IsUsable();
}

void TransferThread::Start(std::shared_ptr<Transfer> transfer)
{
    m_engine->Post(Engine::Order::Start, std::move(transfer));
}

void TransferThread::Stop(std::shared_ptr<Transfer> transfer)
{
    m_engine->Post(Engine::Order::Stop, std::move(transfer));
}
