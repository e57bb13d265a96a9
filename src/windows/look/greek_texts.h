#pragma once

#include <QTranslator>

namespace lorvan {

/// Greek translations of the toolkit's own texts: standard buttons, context menus, the file dialog.
class GreekTexts : public QTranslator {
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    /// A null text if there is no translation.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
        int count = -1) const override;
};

} // namespace lorvan
