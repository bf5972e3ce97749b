// The smallest honest Qt Widgets program: one label and one field. What the start and the memory of ours are
// measured against.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->addWidget(new QLabel(QStringLiteral("A label"), &window));
    column->addWidget(new QLineEdit(&window));
    window.resize(1120, 760);
    window.show();
    return QApplication::exec();
}
