// The parameter dialogs, driven as a user would: each runs with exec(), a polling timer finds
// it as the active modal widget, types into its fields with real key events and clicks OK or
// Cancel; the test then reads the accessors and public fields.
#include "DataInputDlg.h"
#include "ExtrudInputDlg.h"
#include "PolygonNumInputDlg.h"
#include "TruncatedConeInputDlg.h"
#include "WedgeInputDlg.h"
#include "rotateInputDlg.h"
#include "sphereParaInputdlg.h"
#include "torusParaInputDlg.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QGroupBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace {

// Runs `dlg` modally; once it is the active modal widget, `answer` acts on it. A dialog still
// open after 10 s is rejected so that a broken test fails instead of hanging.
int RunModal(QDialog& dlg, const std::function<void(QDialog&)>& answer)
{
    bool answered = false;
    QTimer poll;
    poll.setInterval(10);
    QObject::connect(&poll, &QTimer::timeout, [&]() {
        if (QApplication::activeModalWidget() != &dlg || !dlg.isVisible()) return;
        poll.stop();
        answered = true;
        answer(dlg);
    });
    poll.start();
    QPointer<QDialog> guard(&dlg);
    QTimer::singleShot(10000, [guard]() {
        if (guard && guard->isVisible()) {
            ADD_FAILURE() << "dialog left open";
            guard->reject();
        }
    });
    const int result = dlg.exec();
    EXPECT_TRUE(answered);
    return result;
}

QLineEdit* Edit(QDialog& dlg, const char* name)
{
    QLineEdit* edit = dlg.findChild<QLineEdit*>(QString::fromLatin1(name));
    EXPECT_NE(edit, nullptr) << name;
    return edit;
}

// Selects the field's text with Ctrl+A and types `text` over it, key by key.
void Type(QDialog& dlg, const char* name, const QString& text)
{
    QLineEdit* edit = Edit(dlg, name);
    if (!edit) return;
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, text);
}

void ClickButton(QDialog& dlg, QDialogButtonBox::StandardButton which)
{
    auto* box = dlg.findChild<QDialogButtonBox*>(QString::fromLatin1("buttonBox"));
    ASSERT_NE(box, nullptr);
    QPushButton* button = box->button(which);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
}

QString LabelFor(QDialog& dlg, const char* name)
{
    QLineEdit* edit = Edit(dlg, name);
    for (QLabel* label : dlg.findChildren<QLabel*>())
        if (label->buddy() == edit) return label->text();
    return QString();
}

// ---- DataInputDlg ---------------------------------------------------------------------------

TEST(DataInputDlg, FormHasTheFixedWidgets)
{
    DataInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.objectName(), "DataInputDlg");
    EXPECT_EQ(dlg.windowTitle(), "Input Height");
    EXPECT_EQ(dlg.size(), QSize(293, 129));
    EXPECT_EQ(dlg.font().family().isEmpty(), false);
    EXPECT_FALSE(dlg.isSizeGripEnabled());
    // The form sets the window modality first and the modal flag last; in Qt clearing the flag
    // also clears the modality, so the dialog is not modal until exec() makes it so.
    EXPECT_FALSE(dlg.isModal());
    EXPECT_EQ(dlg.windowModality(), Qt::NonModal);

    struct Expect {
        const char* name;
        const char* cls;
        const char* parent;
        QRect geometry;
        const char* text;
    };
    const Expect expected[] = {
        {"buttonBox", "QDialogButtonBox", "DataInputDlg", QRect(90, 90, 193, 28), nullptr},
        {"groupBox", "QGroupBox", "DataInputDlg", QRect(10, 10, 271, 71), ""},
        {"label_3", "QLabel", "groupBox", QRect(190, 40, 71, 20), "Degree"},
        {"label_2", "QLabel", "groupBox", QRect(10, 40, 72, 21), "Angle"},
        {"label", "QLabel", "groupBox", QRect(10, 10, 72, 16), "Height"},
        {"lineEdit", "QLineEdit", "groupBox", QRect(100, 10, 81, 21), ""},
        {"lineEdit_Angle", "QLineEdit", "groupBox", QRect(100, 40, 81, 21), "360"},
    };
    for (const Expect& e : expected) {
        SCOPED_TRACE(e.name);
        QWidget* w = dlg.findChild<QWidget*>(QString::fromLatin1(e.name));
        ASSERT_NE(w, nullptr);
        EXPECT_STREQ(w->metaObject()->className(), e.cls);
        EXPECT_EQ(w->parentWidget()->objectName(), QString::fromLatin1(e.parent));
        EXPECT_EQ(w->geometry(), e.geometry);
        if (auto* label = qobject_cast<QLabel*>(w)) {
            EXPECT_EQ(label->text(), QString::fromLatin1(e.text));
        }
        if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            EXPECT_EQ(edit->text(), QString::fromLatin1(e.text));
        }
        if (auto* group = qobject_cast<QGroupBox*>(w)) {
            EXPECT_EQ(group->title(), QString::fromLatin1(e.text));
        }
    }
    auto* box = dlg.findChild<QDialogButtonBox*>("buttonBox");
    EXPECT_EQ(box->orientation(), Qt::Horizontal);
    EXPECT_EQ(box->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    QLineEdit* height = Edit(dlg, "lineEdit");
    auto* validator = qobject_cast<const QDoubleValidator*>(height->validator());
    ASSERT_NE(validator, nullptr);
    EXPECT_EQ(validator->bottom(), 0.0);
    EXPECT_EQ(validator->top(), 100000.0);
    EXPECT_EQ(validator->decimals(), 2);
    EXPECT_EQ(validator->notation(), QDoubleValidator::StandardNotation);
    QLineEdit* angle = Edit(dlg, "lineEdit_Angle");
    EXPECT_EQ(angle->validator(), nullptr);
    EXPECT_FALSE(angle->isEnabled());
    // The creation order of the form is the order of the dialog's and the group's children.
    QList<QWidget*> groupChildren = dlg.findChild<QGroupBox*>("groupBox")->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(groupChildren.size(), 5);
    EXPECT_EQ(groupChildren[0]->objectName(), "label_3");
    EXPECT_EQ(groupChildren[4]->objectName(), "lineEdit_Angle");
}

TEST(DataInputDlg, FontIsTheRequestedFamily)
{
    DataInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.font().family(), QString::fromUtf8("\xe5\xbe\xae\xe8\xbd\xaf\xe9\x9b\x85\xe9\xbb\x91"));
}

TEST(DataInputDlg, TypedHeightIsReadAfterOk)
{
    DataInputDlg dlg(nullptr);
    const int result = RunModal(dlg, [](QDialog& d) {
        Type(d, "lineEdit", "12.5");
        ClickButton(d, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(dlg.GetInputHeight(), 12.5);
    EXPECT_EQ(dlg.GetInputAngle(), 360.0);
}

TEST(DataInputDlg, EmptyHeightIsAcceptedAsZero)
{
    DataInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) { ClickButton(d, QDialogButtonBox::Ok); }), 1);
    EXPECT_EQ(dlg.GetInputHeight(), 0.0);
}

TEST(DataInputDlg, ValidatorFiltersTyping)
{
    DataInputDlg dlg(nullptr);
    QString typed[4];
    RunModal(dlg, [&typed](QDialog& d) {
        Type(d, "lineEdit", "1e5");  // no exponent in standard notation: the 'e' is refused
        typed[0] = Edit(d, "lineEdit")->text();
        Type(d, "lineEdit", "100000");
        typed[1] = Edit(d, "lineEdit")->text();
        Type(d, "lineEdit", "-3");  // no minus below a bottom of 0
        typed[2] = Edit(d, "lineEdit")->text();
        Type(d, "lineEdit", "123.456");  // two decimals
        typed[3] = Edit(d, "lineEdit")->text();
        ClickButton(d, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(typed[0], "15");
    EXPECT_EQ(typed[1], "100000");
    EXPECT_EQ(typed[2], "3");
    EXPECT_EQ(typed[3], "123.45");
    EXPECT_EQ(dlg.GetInputHeight(), 123.45);
}

TEST(DataInputDlg, CancelReturnsZero)
{
    DataInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit", "7");
                  ClickButton(d, QDialogButtonBox::Cancel);
              }),
              0);
}

TEST(DataInputDlg, AngleFieldWhenEnabled)
{
    DataInputDlg dlg(nullptr);
    dlg.SetAngleEnabled(true);
    EXPECT_TRUE(Edit(dlg, "lineEdit_Angle")->isEnabled());
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit", "4");
                  Type(d, "lineEdit_Angle", "90");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.GetInputHeight(), 4.0);
    EXPECT_EQ(dlg.GetInputAngle(), 90.0);
    dlg.SetAngleEnabled(false);
    EXPECT_FALSE(Edit(dlg, "lineEdit_Angle")->isEnabled());
}

TEST(DataInputDlg, TabGoesFromHeightToTheButtons)
{
    DataInputDlg dlg(nullptr);
    QWidget* focusAfterTab = nullptr;
    QWidget* focusAtStart = nullptr;
    RunModal(dlg, [&](QDialog& d) {
        // Keyboard focus needs the active window; with no window manager it may come late.
        d.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&d, 5000));
        focusAtStart = QApplication::focusWidget();
        QTest::keyClick(Edit(d, "lineEdit"), Qt::Key_Tab);
        focusAfterTab = QApplication::focusWidget();
        ClickButton(d, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(focusAtStart, Edit(dlg, "lineEdit"));
    ASSERT_NE(focusAfterTab, nullptr);
    EXPECT_EQ(focusAfterTab->parentWidget(), dlg.findChild<QDialogButtonBox*>("buttonBox"));
}

TEST(DataInputDlg, ReturnKeyAccepts)
{
    DataInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit", "3.25");
                  QTest::keyClick(Edit(d, "lineEdit"), Qt::Key_Return);
              }),
              1);
    EXPECT_EQ(dlg.GetInputHeight(), 3.25);
}

// ---- PolygonNumInputDlg ---------------------------------------------------------------------

TEST(PolygonNumInputDlg, DefaultIsSixAndTypedNumberIsTaken)
{
    PolygonNumInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.m_PolygonNumber, 6);
    EXPECT_EQ(Edit(dlg, "lineEdit_EdgeNumber")->text(), "6");
    EXPECT_EQ(LabelFor(dlg, "lineEdit_EdgeNumber"), "Edge number");
    EXPECT_EQ(dlg.windowTitle(), "Input Edge Number");
    auto* validator = qobject_cast<const QIntValidator*>(Edit(dlg, "lineEdit_EdgeNumber")->validator());
    ASSERT_NE(validator, nullptr);
    EXPECT_EQ(validator->bottom(), 3);
    EXPECT_EQ(validator->top(), 1000);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_EdgeNumber", "8");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_PolygonNumber, 8);
}

TEST(PolygonNumInputDlg, NoMinusNoOverflowButZeroReachesTheCaller)
{
    PolygonNumInputDlg dlg(nullptr);
    QString typed[2];
    RunModal(dlg, [&typed](QDialog& d) {
        Type(d, "lineEdit_EdgeNumber", "-4");
        typed[0] = Edit(d, "lineEdit_EdgeNumber")->text();
        Type(d, "lineEdit_EdgeNumber", "10000");  // more digits than 1000 has
        typed[1] = Edit(d, "lineEdit_EdgeNumber")->text();
        Type(d, "lineEdit_EdgeNumber", "0");
        ClickButton(d, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(typed[0], "4");
    EXPECT_EQ(typed[1], "1000");
    EXPECT_EQ(dlg.m_PolygonNumber, 0);
}

TEST(PolygonNumInputDlg, CancelKeepsTheNumber)
{
    PolygonNumInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_EdgeNumber", "12");
                  ClickButton(d, QDialogButtonBox::Cancel);
              }),
              0);
    EXPECT_EQ(dlg.m_PolygonNumber, 6);
}

// ---- ExtrudInputDlg -------------------------------------------------------------------------

TEST(ExtrudInputDlg, DefaultsAndTypedValues)
{
    ExtrudInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.m_ExtrudeHeight, 10.0);
    EXPECT_TRUE(dlg.GetExtrudeDirection().IsEqual(gp_Dir(0, 0, 1), 0.0));
    EXPECT_EQ(Edit(dlg, "lineEdit_Height")->text(), "10");
    EXPECT_EQ(Edit(dlg, "lineEdit_DirZ")->text(), "1");
    EXPECT_EQ(LabelFor(dlg, "lineEdit_DirY"), "Direction Y");
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "-5.5");  // extrudes the other way
                  Type(d, "lineEdit_DirX", "0");
                  Type(d, "lineEdit_DirY", "3");
                  Type(d, "lineEdit_DirZ", "4");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_ExtrudeHeight, -5.5);
    gp_Dir dir = dlg.GetExtrudeDirection();
    EXPECT_DOUBLE_EQ(dir.X(), 0.0);
    EXPECT_DOUBLE_EQ(dir.Y(), 0.6);
    EXPECT_DOUBLE_EQ(dir.Z(), 0.8);
}

TEST(ExtrudInputDlg, ZeroDirectionIsRefusedInTheDialog)
{
    ExtrudInputDlg dlg(nullptr);
    bool stayedOpen = false;
    QString note;
    EXPECT_EQ(RunModal(dlg, [&](QDialog& d) {
                  Type(d, "lineEdit_DirZ", "0");
                  ClickButton(d, QDialogButtonBox::Ok);
                  stayedOpen = d.isVisible();
                  auto* error = d.findChild<QLabel*>("label_Error");
                  if (error && error->isVisible()) note = error->text();
                  Type(d, "lineEdit_DirX", "2");
                  Type(d, "lineEdit_Height", "7");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(note, "The direction must not be a zero vector");
    EXPECT_TRUE(dlg.GetExtrudeDirection().IsEqual(gp_Dir(1, 0, 0), 0.0));
    EXPECT_EQ(dlg.m_ExtrudeHeight, 7.0);
}

TEST(ExtrudInputDlg, CancelKeepsTheDefaults)
{
    ExtrudInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "3");
                  Type(d, "lineEdit_DirX", "1");
                  ClickButton(d, QDialogButtonBox::Cancel);
              }),
              0);
    EXPECT_EQ(dlg.m_ExtrudeHeight, 10.0);
    EXPECT_TRUE(dlg.GetExtrudeDirection().IsEqual(gp_Dir(0, 0, 1), 0.0));
}

// ---- rotateInputDlg -------------------------------------------------------------------------

TEST(rotateInputDlg, DefaultsAndTypedAxis)
{
    rotateInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.m_DlgRotateAngle, 360.0);
    EXPECT_EQ(dlg.m_DlgRotatePoint.Distance(gp_Pnt(0, 0, 0)), 0.0);
    EXPECT_TRUE(dlg.GetRotateDir().IsEqual(gp_Dir(1, 0, 0), 0.0));
    EXPECT_EQ(LabelFor(dlg, "lineEdit_Angle"), "Angle");
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_PointX", "1");
                  Type(d, "lineEdit_PointY", "-2");
                  Type(d, "lineEdit_PointZ", "3.5");
                  Type(d, "lineEdit_DirX", "0");
                  Type(d, "lineEdit_DirZ", "2");
                  Type(d, "lineEdit_Angle", "-90");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_DlgRotateAngle, -90.0);
    EXPECT_EQ(dlg.m_DlgRotatePoint.X(), 1.0);
    EXPECT_EQ(dlg.m_DlgRotatePoint.Y(), -2.0);
    EXPECT_EQ(dlg.m_DlgRotatePoint.Z(), 3.5);
    EXPECT_TRUE(dlg.GetRotateDir().IsEqual(gp_Dir(0, 0, 1), 0.0));
    gp_Ax1 axis = dlg.GetRotateAxis();
    EXPECT_EQ(axis.Location().Distance(gp_Pnt(1, -2, 3.5)), 0.0);
    EXPECT_TRUE(axis.Direction().IsEqual(gp_Dir(0, 0, 1), 0.0));
}

TEST(rotateInputDlg, ZeroAxisIsRefusedAndAngleIsBounded)
{
    rotateInputDlg dlg(nullptr);
    bool stayedOpen = false;
    QString typedAngle;
    RunModal(dlg, [&](QDialog& d) {
        Type(d, "lineEdit_DirX", "0");
        ClickButton(d, QDialogButtonBox::Ok);
        stayedOpen = d.isVisible();
        Type(d, "lineEdit_Angle", "3600");
        typedAngle = Edit(d, "lineEdit_Angle")->text();
        ClickButton(d, QDialogButtonBox::Cancel);
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(typedAngle, "360");
    EXPECT_TRUE(dlg.GetRotateDir().IsEqual(gp_Dir(1, 0, 0), 0.0));
}

// ---- sphereParaInputdlg ---------------------------------------------------------------------

TEST(sphereParaInputdlg, DefaultsAreTheFullSphere)
{
    sphereParaInputdlg dlg(nullptr);
    EXPECT_EQ(dlg.m_DlgAngle1, -90.0);
    EXPECT_EQ(dlg.m_DlgAngle2, 90.0);
    EXPECT_EQ(dlg.m_DlgAngle3, 360.0);
    EXPECT_EQ(Edit(dlg, "lineEdit_Angle1")->text(), "-90");
    EXPECT_EQ(Edit(dlg, "lineEdit_Angle2")->text(), "90");
    EXPECT_EQ(Edit(dlg, "lineEdit_Angle3")->text(), "360");
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) { ClickButton(d, QDialogButtonBox::Ok); }), 1);
    EXPECT_EQ(dlg.m_DlgAngle1, -90.0);
    EXPECT_EQ(dlg.m_DlgAngle2, 90.0);
    EXPECT_EQ(dlg.m_DlgAngle3, 360.0);
}

TEST(sphereParaInputdlg, TypedAnglesIncludingOutOfRangeOnesReachTheCaller)
{
    sphereParaInputdlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Angle1", "10");  // outside -90..0: the caller reports it
                  Type(d, "lineEdit_Angle2", "45.5");
                  Type(d, "lineEdit_Angle3", "180");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_DlgAngle1, 10.0);
    EXPECT_EQ(dlg.m_DlgAngle2, 45.5);
    EXPECT_EQ(dlg.m_DlgAngle3, 180.0);
}

// ---- torusParaInputDlg ----------------------------------------------------------------------

TEST(torusParaInputDlg, DefaultsAndTypedValues)
{
    torusParaInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.GetSweepRadius(), 1.0);
    EXPECT_EQ(dlg.m_DlgAngle1, -180.0);
    EXPECT_EQ(dlg.m_DlgAngle2, 180.0);
    EXPECT_EQ(dlg.m_DlgAngle3, 360.0);
    EXPECT_EQ(LabelFor(dlg, "lineEdit_SweepRadius"), "Sweep radius");
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_SweepRadius", "2.5");
                  Type(d, "lineEdit_Angle1", "0");
                  Type(d, "lineEdit_Angle2", "90");
                  Type(d, "lineEdit_Angle3", "270");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.GetSweepRadius(), 2.5);
    EXPECT_EQ(dlg.m_DlgAngle1, 0.0);
    EXPECT_EQ(dlg.m_DlgAngle2, 90.0);
    EXPECT_EQ(dlg.m_DlgAngle3, 270.0);
}

TEST(torusParaInputDlg, DisabledAnglesKeepTheDefaults)
{
    torusParaInputDlg dlg(nullptr);
    dlg.DisableAngleUI();
    EXPECT_FALSE(Edit(dlg, "lineEdit_Angle1")->isEnabled());
    EXPECT_FALSE(Edit(dlg, "lineEdit_Angle2")->isEnabled());
    EXPECT_FALSE(Edit(dlg, "lineEdit_Angle3")->isEnabled());
    EXPECT_TRUE(Edit(dlg, "lineEdit_SweepRadius")->isEnabled());
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_SweepRadius", "0");  // the caller reports a zero radius
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.GetSweepRadius(), 0.0);
    EXPECT_EQ(dlg.m_DlgAngle1, -180.0);
    EXPECT_EQ(dlg.m_DlgAngle3, 360.0);
}

// ---- TruncatedConeInputDlg ------------------------------------------------------------------

TEST(TruncatedConeInputDlg, DefaultsAndTypedValues)
{
    TruncatedConeInputDlg dlg(nullptr);
    EXPECT_EQ(dlg.m_DlgHeight, 10.0);
    EXPECT_EQ(dlg.m_DlgTopRadius, 5.0);
    EXPECT_EQ(dlg.m_DlgAngle, 360.0);
    EXPECT_EQ(LabelFor(dlg, "lineEdit_TopRadius"), "Top radius");
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "6");
                  Type(d, "lineEdit_TopRadius", "1.5");
                  Type(d, "lineEdit_Angle", "120");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_DlgHeight, 6.0);
    EXPECT_EQ(dlg.m_DlgTopRadius, 1.5);
    EXPECT_EQ(dlg.m_DlgAngle, 120.0);
}

TEST(TruncatedConeInputDlg, DisabledAngleStaysAtFullTurn)
{
    TruncatedConeInputDlg dlg(nullptr);
    dlg.DisableAngleInput();
    EXPECT_FALSE(Edit(dlg, "lineEdit_Angle")->isEnabled());
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "0");  // the caller reports a zero height
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    EXPECT_EQ(dlg.m_DlgHeight, 0.0);
    EXPECT_EQ(dlg.m_DlgAngle, 360.0);
}

// ---- WedgeInputDlg --------------------------------------------------------------------------

TEST(WedgeInputDlg, DefaultsAreARamp)
{
    WedgeInputDlg dlg(nullptr);
    double h = 0, x1 = -1, y1 = -1, x2 = -1, y2 = -1;
    dlg.GetWedgeParameter(h, x1, y1, x2, y2);
    EXPECT_EQ(h, 10.0);
    EXPECT_EQ(x1, 0.0);
    EXPECT_EQ(y1, 0.0);
    EXPECT_EQ(x2, 1.0);
    EXPECT_EQ(y2, 0.0);
    EXPECT_EQ(LabelFor(dlg, "lineEdit_TopXMax"), "Top X max");
}

TEST(WedgeInputDlg, TypedValuesInTheCreatorsOrder)
{
    WedgeInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "30");
                  Type(d, "lineEdit_TopXMin", "0.25");
                  Type(d, "lineEdit_TopYMin", "0.5");
                  Type(d, "lineEdit_TopXMax", "0.75");
                  Type(d, "lineEdit_TopYMax", "1");
                  ClickButton(d, QDialogButtonBox::Ok);
              }),
              1);
    double h = 0, x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    dlg.GetWedgeParameter(h, x1, y1, x2, y2);
    EXPECT_EQ(h, 30.0);
    EXPECT_EQ(x1, 0.25);
    EXPECT_EQ(y1, 0.5);
    EXPECT_EQ(x2, 0.75);
    EXPECT_EQ(y2, 1.0);
}

TEST(WedgeInputDlg, CancelKeepsTheValues)
{
    WedgeInputDlg dlg(nullptr);
    EXPECT_EQ(RunModal(dlg, [](QDialog& d) {
                  Type(d, "lineEdit_Height", "3");
                  ClickButton(d, QDialogButtonBox::Cancel);
              }),
              0);
    double h = 0, x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    dlg.GetWedgeParameter(h, x1, y1, x2, y2);
    EXPECT_EQ(h, 10.0);
}

}  // namespace
