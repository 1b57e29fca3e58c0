// TevDemoApplication: the host's QApplication. Its notify() is the last boundary of every event:
// a failure (an OpenCASCADE Standard_Failure, a std::exception or anything else thrown) that
// escapes the handler of an event is caught there instead of ending the program. The document
// transaction the failing command left open is aborted, so the document is as it was before
// that command; one level 2 line "<receiver class> : <failure text>" goes to the message panel
// through DrawerOutput; and m_signal_FailureCaught lets the window redraw from the document.
#ifndef TEVDEMOAPPLICATION_H
#define TEVDEMOAPPLICATION_H

#include <QApplication>
#include <QString>

class TevDemoApplication : public QApplication
{
    Q_OBJECT

public:
    TevDemoApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    void m_signal_FailureCaught(QString text);

private:
    void Report(QObject* receiver, const QString& text);
};

#endif
