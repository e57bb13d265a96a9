#pragma once

#include "cashbook/entry_content.h"
#include "cashbook/movement.h"
#include "controls/control_array.h"

#include <QObject>

#include <optional>

class QCheckBox;

namespace lorvan {

class EntryField;

/// The entry fields of a movement apart from its day and code: `Text1(1)`, `Text1(2)`, `Text1(3)`, `Text1(9)`,
/// `Check1(0)`. The fields belong to the page on which they lie.
///
/// An amount that was put into a field keeps its four decimals as long as the field's text is not changed.
class MovementFields : public QObject {
    Q_OBJECT

public:
    enum class Kind { Income, Expense };

    explicit MovementFields(QWidget* page);

    [[nodiscard]] EntryField* field(int index) const { return m_fields[index]; }
    [[nodiscard]] QCheckBox* cheque() const { return m_cheque; }

    /// Judges an amount field that was left: rewrites it in the amount format, an empty one as "0". A text that is no
    /// number or out of range gets its message and stays; the answer is then false.
    bool settleAmount(int index);

    /// Puts the fields' content into the draft. False, after a message, when an amount cannot be read.
    [[nodiscard]] bool read(MovementDraft& draft) const;

    /// What stands in the fields, refused texts included; the code is not theirs.
    void takeContent(EntryContent& content) const;
    /// Puts it back exactly.
    void setContent(const EntryContent& content);

    void show(const MovementDraft& movement);
    void setAmounts(Currency income, Currency expense);
    /// Moves the amount that stands in either field to the one of this kind; an amount that cannot be read stays.
    void moveAmountTo(Kind kind);
    void clearDescription();
    void clearMemorandum();
    void clearCheque();

    /// Chooses which of the two amount fields can be typed into.
    void enableAmount(Kind kind);
    /// Off: nothing can be typed. On: everything but the other amount field.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void typed(int index); ///< Into the field of this index, `Text1(index)`; -1 for the cheque mark.
    void changed(); ///< A text is another, by whatever.

private:
    void addAmount(QWidget* page, int index, const QString& name);
    void watch(int index);
    void setAmount(int index, Currency amount);
    [[nodiscard]] EntryContent::Amount contentOf(int index) const;
    [[nodiscard]] std::optional<Currency> amount(int index) const;
    [[nodiscard]] bool sayIfRefused(int index) const;

    ControlArray<EntryField> m_fields;
    std::map<int, Currency> m_exact;
    QCheckBox* m_cheque;
    bool m_enabled = true;
    Kind m_kind = Kind::Expense;
};

} // namespace lorvan
