#include "app/look/SymbolIconEngine.h"

#include "app/look/Symbols.h"

#include <QIconEngine>
#include <QPainter>
#include <algorithm>
#include <string>

namespace zelta {

namespace {

class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(std::string_view name, Theme::Token token)
        : m_name(name)
        , m_token(token)
    { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const Theme::Token token = mode == QIcon::Disabled ? Theme::Token::textOff : m_token;
        Symbols::draw(*painter, rect, m_name, std::min(rect.width(), rect.height()), Theme::color(token));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const Theme::Token token = mode == QIcon::Disabled ? Theme::Token::textOff : m_token;
        return Symbols::pixmap(m_name, std::min(size.width(), size.height()), Theme::color(token), 1);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(*this); }

private:
    std::string m_name;
    Theme::Token m_token;
};

} // namespace

QIcon symbolIcon(std::string_view name, Theme::Token token)
{
    return QIcon(new SymbolIconEngine(name, token));
}

} // namespace zelta
