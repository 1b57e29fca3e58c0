#include "TevUserHand.h"

#include "TevBasicViewer.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <vtkCoordinate.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <cmath>

QPoint TevUserHand::PixelOf(TevBasicViewer* viewer, double x, double y, double z)
{
    auto coord = vtkSmartPointer<vtkCoordinate>::New();
    coord->SetCoordinateSystemToWorld();
    coord->SetValue(x, y, z);
    const double* d = coord->GetComputedDoubleDisplayValue(viewer->GetDefaultRender());
    // VTK's display pixels are device pixels from the bottom left.
    const double ratio = viewer->devicePixelRatioF();
    const int height = static_cast<int>(std::lround(viewer->height() * ratio));
    return QPoint(static_cast<int>(std::lround(d[0] / ratio)),
                  static_cast<int>(std::lround((height - 1 - d[1]) / ratio)));
}

void TevUserHand::Click(TevBasicViewer* viewer, double x, double y)
{
    const QPoint pos = PixelOf(viewer, x, y, 0.0);
    const QPoint global = viewer->mapToGlobal(pos);
    QMouseEvent move(QEvent::MouseMove, pos, global, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QMouseEvent press(QEvent::MouseButtonPress, pos, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(viewer, &move);
    QApplication::sendEvent(viewer, &press);
    QApplication::sendEvent(viewer, &release);
}

void TevUserHand::AnswerDialogLater(const char* className, const std::vector<std::pair<QString, QString>>& fields)
{
    auto* timer = new QTimer();
    timer->setInterval(20);
    QObject::connect(timer, &QTimer::timeout, [timer, className, fields]() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->inherits(className)) return;
        timer->stop();
        timer->deleteLater();
        for (const auto& field : fields)
            if (auto* edit = dialog->findChild<QLineEdit*>(field.first)) edit->setText(field.second);
        auto* buttons = dialog->findChild<QDialogButtonBox*>("buttonBox");
        if (buttons && buttons->button(QDialogButtonBox::Ok)) buttons->button(QDialogButtonBox::Ok)->click();
        else dialog->accept();
    });
    timer->start();
}

void TevUserHand::Wait(int ms)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < ms) QApplication::processEvents(QEventLoop::AllEvents, 20);
}
