#pragma once

#include "net/transfer.h"
#include "net/transfer_options.h"

#include <memory>

/// The one thread that does all transfers.
///
/// Made, used and destroyed by the owner's thread. Destroying it stops all running transfers.
class TransferThread
{
public:
    explicit TransferThread(TransferOptions options);
    ~TransferThread();
    Q_DISABLE_COPY_MOVE(TransferThread)

    /// False if libcurl could not be initialised: then nothing can be started.
    [[nodiscard]] bool IsUsable() const;

    /// Starts `transfer`, which has ended once it has a reply. Returns at once.
    void Start(std::shared_ptr<Transfer> transfer);

    /// Aborts `transfer`; it then never gets a reply, unless it had already ended. Returns at
    /// once.
    void Stop(std::shared_ptr<Transfer> transfer);

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};
