#pragma once

#include "app/pages/CalculatorKey.h"

#include <QPushButton>
#include <QWidget>
#include <vector>

namespace zelta {

/// One key. A click does not take the focus, so that typing goes on; Tab reaches it.
class KeypadKey final : public QPushButton
{
    Q_OBJECT

public:
    explicit KeypadKey(const CalculatorKey& key, QWidget* parent = nullptr);

    [[nodiscard]] const CalculatorKey& key() const { return m_key; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CalculatorKey m_key;
    CalculatorKeyFace m_face;
};

/// The five rows of four keys.
class Keypad final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int tallKey = 60;
    static constexpr int shortKey = 46;

    explicit Keypad(QWidget* parent = nullptr);

    /// [shortKey:tallKey]
    void setKeyHeight(int pixels);

Q_SIGNALS:
    void pressed(const CalculatorKey& key);

private:
    std::vector<KeypadKey*> m_keys;
};

} // namespace zelta
