#pragma once

#include <QTextEdit>

namespace zelta {

/// The full result of one entry: read-only lines that can be selected with mouse and keyboard. As tall as its
/// text, so that only the page scrolls.
class HistoryDetail : public QTextEdit
{
    Q_OBJECT

public:
    HistoryDetail(const QString& text, QWidget* parent);

    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace zelta
