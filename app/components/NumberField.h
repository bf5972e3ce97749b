#pragma once

#include <QWidget>

class QHBoxLayout;
class QLineEdit;

namespace zelta {

/// A text field for a number, with what belongs around it: label above, suffix after, explanation below.
/// While its text cannot be read as a number the line "Not a number" stands under the field; a blank text is
/// no mistake.
class NumberField : public QWidget
{
    Q_OBJECT

public:
    /// How far below the top of a labelled field's widget the field itself begins: what stands beside it
    /// without a label, such as a swap button, starts there.
    static int fieldTop();

    /// `label` is also the field's accessible name, and `explanation` its description while no warning is
    /// shown. Either may be empty and is then left out.
    NumberField(const QString& label, const QString& explanation, QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;

    /// Sets the text without `textEdited`.
    void setText(const QString& text);

    void setPlaceholder(const QString& text);
    void setSuffix(const QString& text);
    void setFieldWidth(int pixels);

    /// Whether "Not a number" is shown.
    [[nodiscard]] bool showsWarning() const;

    /// The field itself, for focus.
    [[nodiscard]] QLineEdit* field() const;

Q_SIGNALS:
    /// The person changed the text, by keys or by assistive technology.
    void textEdited(const QString& text);

private:
    void follow(const QString& text);

    QLineEdit* m_field = nullptr;
    QHBoxLayout* m_row;
    QWidget* m_warning = nullptr;
    QString m_explanation;
    bool m_isSetting = false;
};

} // namespace zelta
