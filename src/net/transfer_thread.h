#pragma once

#include "net/transfer.h"
#include "net/transfer_options.h"

#include <memory>

/// The one thread that does all transfers.
///
/// Made, used and destroyed by the owner's thread. Destroying it stops what still runs.
class TransferThread
{
public:
    explicit TransferThread(TransferOptions options);
    ~TransferThread();
    Q_DISABLE_COPY_MOVE(TransferThread)

    /// False when libcurl could not be brought up: then nothing can be started.
    [[nodiscard]] bool IsUsable() const;

    /// Begins `transfer`, which ends by having a result. Returns at once.
    void Start(std::shared_ptr<Transfer> transfer);

    /// Breaks `transfer` off; it then never gets a result, unless it had ended before. Returns at
    /// once.
    void Stop(std::shared_ptr<Transfer> transfer);

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};
