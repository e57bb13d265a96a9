#pragma once

#include "book/book_files.h"
#include "proof/balance_proof.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace lorvan {

class KeyRing;

/// Proves balances and seals of a book in a thread of its own, on a connection of its own, while the user works.
class BackgroundProof : public QObject {
    Q_OBJECT

public:
    /// `keys` must outlive the object.
    BackgroundProof(BookFiles book, KeyRing& keys, const ProofPace& pace = {});
    ~BackgroundProof() override;

    /// A proof that is under way is given up and begins anew. Never waits.
    void start();
    /// Gives up what is under way; nothing is begun any more.
    void retire();

Q_SIGNALS:
    /// The proof that is under way has read about so many rows of so many.
    void advanced(qint64 done, qint64 whole);
    void ended(const lorvan::BalanceProof& proof);
    void failed(const QString& reason); ///< What failureText() says.

private:
    void begin();
    void run();
    void advance(qint64 done, qint64 whole);
    void end(const std::function<void()>& tell);

    BookFiles m_book;
    KeyRing& m_keys;
    ProofPace m_pace;
    bool m_isUnderWay = false;
    bool m_isWantedAgain = false;
    bool m_isRetired = false;
    std::atomic<bool> m_isStopped = false;
    std::thread m_thread;
};

} // namespace lorvan
