#pragma once

#include "controls/control_array.h"
#include "movements/entry_content.h"
#include "movements/movement.h"

#include <QObject>

#include <optional>

class QCheckBox;

namespace lorvan {

class EntryField;
class SuggestingField;

/// The entry fields of a movement except its day and code: `Text1(1)`, `Text1(2)`, `Text1(3)`, `Text1(9)`, `Check1(0)`.
/// The fields belong to the page that contains them.
///
/// An amount put into a field keeps its four decimals until the field's text is changed.
class MovementFields : public QObject {
    Q_OBJECT

public:
    enum class Kind { Income, Expense };

    explicit MovementFields(QWidget* page);

    [[nodiscard]] EntryField* field(int index) const { return m_fields[index]; }
    [[nodiscard]] SuggestingField* description() const { return m_description; }
    [[nodiscard]] QCheckBox* cheque() const { return m_cheque; }

    /// Checks an amount field that was left: rewrites it in the amount format, an empty one as "0". For a text that is
    /// not a number or is out of range, shows a message, leaves the text and returns false.
    bool settleAmount(int index);

    /// Copies the fields' content into the draft. Returns false, after a message, if an amount cannot be read.
    [[nodiscard]] bool read(MovementDraft& draft) const;

    /// The content of the fields, refused texts included; the code is not among them.
    void takeContent(EntryContent& content) const;
    /// Restores it exactly.
    void setContent(const EntryContent& content);

    void show(const MovementDraft& movement);
    void setAmounts(Currency income, Currency expense);
    /// Moves the amount in either field to the one of this kind; an amount that cannot be read is left alone.
    void moveAmountTo(Kind kind);
    void clearDescription();
    void clearMemorandum();
    void clearCheque();

    /// Chooses which of the two amount fields is enabled.
    void enableAmount(Kind kind);
    /// False: nothing can be typed. True: everything except the other amount field is enabled.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void typed(int index); ///< Into the field with this index, `Text1(index)`; -1 for the cheque mark.
    void changed(); ///< A text has changed, for whatever reason.

private:
    void addAmount(QWidget* page, int index, const QString& name);
    void watch(int index);
    void setAmount(int index, Currency amount);
    [[nodiscard]] EntryContent::Amount contentOf(int index) const;
    [[nodiscard]] std::optional<Currency> amount(int index) const;
    [[nodiscard]] bool sayIfRefused(int index) const;

    ControlArray<EntryField> m_fields;
    SuggestingField* m_description; ///< One of them.
    std::map<int, Currency> m_exact;
    QCheckBox* m_cheque;
    bool m_enabled = true;
    Kind m_kind = Kind::Expense;
};

} // namespace lorvan
