#pragma once

#include "platform/clock.h"
#include "platform/files/settings_store.h"
#include "proof/background_proof.h"
#include "proof/last_proof.h"

#include <QObject>
#include <QTimer>

namespace lorvan {

/// Decides when balances and seals of the open book are proved: once it may be written, a moment after that, and again
/// whenever it is asked to. A proof without findings is remembered in the user's settings.
class BalanceWatch : public QObject {
    Q_OBJECT

public:
    /// `keys` must outlive the object.
    BalanceWatch(const BookFiles& book, KeyRing& keys, Clock clock);

    /// To be called whenever the book may be written; only the first time counts.
    void bookIsWritable();
    /// Something has happened after which a user wants to know: a closing, a correction, midnight.
    void proveSoon();
    /// The user has asked for it, or a repair was made.
    void proveNow();
    void retire();

Q_SIGNALS:
    void advanced(qint64 done, qint64 whole); ///< See BackgroundProof.
    void proved(const lorvan::LastProof& proof); ///< Now, or recently enough.
    void provedNow(); ///< After proved().
    void found(const lorvan::BalanceProof& proof);
    void failed(const QString& reason); ///< What failureText() says.

private:
    [[nodiscard]] std::optional<LastProof> remembered() const;
    void proveUnasked();
    void end(const BalanceProof& proof);

    BookFiles m_book;
    Clock m_clock;
    SettingsStore m_settings;
    BackgroundProof m_proof;
    QTimer m_soon;
    bool m_hasBegun = false;
};

} // namespace lorvan
