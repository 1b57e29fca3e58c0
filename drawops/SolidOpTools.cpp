#include "SolidOpTools.h"

#include "DataInputDlg.h"

#include <QMessageBox>
#include <QObject>

namespace SolidOpTools {

const double kQuadBandColour[3] = {0.0, 0.9, 0.2};

HeightAnswer AskHeight(bool angleEnabled, HeightRule rule, double& height, double& angle)
{
    DataInputDlg dlg(nullptr);
    dlg.SetAngleEnabled(angleEnabled);
    if (dlg.exec() != 1) return HeightAnswer::Cancelled;
    height = dlg.GetInputHeight();
    angle = dlg.GetInputAngle();
    const bool zeroOnly = rule == HeightRule::ZeroOnly;
    if (zeroOnly ? height == 0.0 : height <= 0.0) {
        ShowHeightError(zeroOnly);
        return HeightAnswer::Refused;
    }
    return HeightAnswer::Given;
}

void ShowHeightError(bool translated)
{
    const char* title = "Error";
    const char* text = "Height error input";
    if (translated)
        QMessageBox::information(nullptr, QObject::tr(title), QObject::tr(text), QMessageBox::Ok);
    else
        QMessageBox::information(nullptr, QString::fromLatin1(title), QString::fromLatin1(text), QMessageBox::Ok);
}

}  // namespace SolidOpTools
