#include "TevDemoApplication.h"

#include "DrawerOutput.h"
#include "ShapeDocMgr.h"

#include <Standard_Failure.hxx>

#include <exception>

TevDemoApplication::TevDemoApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool TevDemoApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const Standard_Failure& failure) {
        const char* text = failure.GetMessageString();
        Report(receiver, text && *text ? QString::fromLocal8Bit(text) : QString(failure.DynamicType()->Name()));
    } catch (const std::exception& failure) {
        Report(receiver, QString::fromLocal8Bit(failure.what()));
    } catch (...) {
        Report(receiver, "unknown failure");
    }
    return false;
}

void TevDemoApplication::Report(QObject* receiver, const QString& text)
{
    ShapeDocMgr::GetInstance()->AbortTransaction();
    const QString where = receiver ? QString::fromLatin1(receiver->metaObject()->className()) : QString("TevDemoHost");
    const QString line = where + " : " + text;
    DrawerOutput::GetInstance()->EmitMessage(2, line);
    emit m_signal_FailureCaught(line);
}
