#pragma once

#include "platform/clock.h"

#include <QString>

#include <stdexcept>

namespace lorvan {

/// What a user may do beyond viewing, printing, and working on open days.
struct Rights {
    bool modifyCash = false; ///< Change the movements of closed days too.
    bool closeCash = false; ///< Close a cash day.
    bool modifyCodes = false; ///< Change codes and groups.
};

enum class Right { ModifyCash, CloseCash, ModifyCodes };

/// A change that its author may not make. what() says so in plain Greek, in UTF-8.
class NotPermitted : public std::runtime_error {
public:
    explicit NotPermitted(Right missing);
};

/// In whose name a book is written: what they may do, and how they and the time of the change are recorded. No writing
/// transaction begins without one.
class Authority {
public:
    static Authority user(const QString& name, Rights rights, Clock clock = Clock());
    /// The built-in administrator, who may do everything.
    static Authority administrator(Clock clock = Clock());
    /// The command-line companion: who may use it has the files anyway, so it may do everything that its options allow.
    static Authority companion(Clock clock = Clock());
    /// The program's own housekeeping: tables, indexes, what a killed program left. It has no rights.
    static Authority program(Clock clock = Clock());
    /// The program, where it seals days that users have closed without a seal: it may close, as sealing asks for, and
    /// nothing else. Nobody has to be asked, since a seal only records what such a day holds; its closing is already in
    /// the journal, in the name of whoever made it or as found.
    static Authority sealing(Clock clock = Clock());

    /// The same with one right less, for an option that was not given.
    [[nodiscard]] Authority without(Right right) const;

    [[nodiscard]] bool has(Right right) const;
    /// Throws NotPermitted.
    void require(Right right) const;

    /// The user, or the name that stands for the others.
    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] const QString& computer() const { return m_computer; }
    [[nodiscard]] QDateTime now() const { return m_clock.now(); }

private:
    Authority(QString name, Rights rights, Clock clock);

    QString m_name;
    QString m_computer;
    Rights m_rights;
    Clock m_clock;
};

} // namespace lorvan
