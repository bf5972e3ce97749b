#pragma once

#include <QLineEdit>

namespace zelta {

class IconButton;

/// A text field with a magnifier, and a clear button while it holds text.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(const QString& placeholder, QWidget* parent = nullptr);

    [[nodiscard]] IconButton* clearButton() const { return m_clear; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Down, Return or Enter: on to what was found.
    void resultsWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    IconButton* m_clear;
};

} // namespace zelta
