// The fixture of the solid primitive operation tests: the planar fixture's shown viewer, clicks
// and moves by real mouse events, plus the dialogs answered by typing, the measures of a solid
// (validity, volume, bounding box), the state of the document and its undo stack, and the
// rubber bands as they show in the rendered image.
#ifndef SOLIDOPTEST_H
#define SOLIDOPTEST_H

#include "../siblings/SiblingTestSupport.h"
#include "PlanarOpTest.h"
#include "SolidOpTestPeer.h"

#include <BRepCheck_Analyzer.hxx>
#include <QPointer>
#include <Standard_Failure.hxx>

#include <algorithm>
#include <array>
#include <cmath>

namespace tevtest {

// The document as far as a refusal must leave it alone.
struct DocState {
    size_t shapes = 0;
    int undos = 0;
    bool open = false;
    bool operator==(const DocState& o) const { return shapes == o.shapes && undos == o.undos && open == o.open; }
};

// While it lives, every level-2 line that starts with `prefix` raises a Standard_Failure with
// the text "injected failure" instead of only being shown: a creator that reports a refusal
// through DrawerOutput then raises out of its call, as a kernel failure inside the creation
// would.
class RaiseOnFault
{
public:
    explicit RaiseOnFault(const QString& prefix)
    {
        m_connection = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                        [prefix](int level, QString text) {
                                            if (level == 2 && text.startsWith(prefix))
                                                throw Standard_Failure("injected failure");
                                        });
    }
    ~RaiseOnFault() { QObject::disconnect(m_connection); }
    RaiseOnFault(const RaiseOnFault&) = delete;
    RaiseOnFault& operator=(const RaiseOnFault&) = delete;

private:
    QMetaObject::Connection m_connection;
};

class SolidOpTest : public PlanarOpTest
{
protected:
    enum class Band { Red, Green };

    // Answers the next dialog of `className` (see AnswerNextDialog); what it showed lands in
    // `dialog`.
    void Answer(const char* className, const std::vector<FieldText>& fields, bool ok = true)
    {
        dialog = DialogSeen();
        pendingAnswer = AnswerNextDialog(className, fields, ok, &dialog);
    }
    // An answer still waiting for its dialog must not outlive the fixture it writes to.
    void TearDown() override
    {
        delete pendingAnswer.data();
        PlanarOpTest::TearDown();
    }
    // The height dialog: the height typed, and the angle when `angle` is not null.
    void AnswerHeight(const QString& height, bool ok = true, const char* angle = nullptr)
    {
        std::vector<FieldText> fields{{"lineEdit", height}};
        if (angle) fields.push_back({"lineEdit_Angle", QString::fromLatin1(angle)});
        Answer("DataInputDlg", fields, ok);
    }
    // Clicks at `p` with the next message box answered by OK; returns what it showed.
    BoxSeen ClickWithBox(const gp_Pnt& p)
    {
        BoxSeen box;
        AnswerNextMessageBox(QMessageBox::Ok, &box);
        Click(p);
        return box;
    }

    // Clicks at `p` where the dialog armed before gives a height to refuse: the box "Height error
    // input" titled "Error" shows, and the document, its undo stack and the operation on top stay
    // as they were.
    void ExpectHeightRefusedAt(const gp_Pnt& p)
    {
        IDrawOp* op = Current();
        const DocState before = Doc();
        const BoxSeen box = ClickWithBox(p);
        EXPECT_TRUE(box.shown);
        EXPECT_EQ(box.title, "Error");
        EXPECT_EQ(box.text, "Height error input");
        EXPECT_TRUE(Doc() == before);
        EXPECT_EQ(Current(), op);
    }

    static DocState Doc()
    {
        ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
        return DocState{ShapeLabelMgr::GetInstance()->GetAllShapes().size(), doc->GetAvailableUndos(),
                        doc->HasOpenTransaction()};
    }
    // The fault lines of `log`, level 2 only.
    static Lines Faults(const PromptLog& log)
    {
        Lines out;
        for (size_t i = 0; i < log.lines.size(); ++i)
            if (log.levels[i] == 2) out.push_back(log.lines[i]);
        return out;
    }

    // The document holds exactly one more shape, the last one, which is one valid solid with
    // `volume` and the bounding box `lo`..`hi`. Both agree to 1e-6 relative: the volume to its
    // own size, the box coordinates to the size of the box.
    static TopoDS_Shape ExpectOneSolid(size_t shapesBefore, double volume, const gp_Pnt& lo, const gp_Pnt& hi)
    {
        const std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
        EXPECT_EQ(all.size(), shapesBefore + 1);
        if (all.size() != shapesBefore + 1) return TopoDS_Shape();
        const TopoDS_Shape s = all.back();
        EXPECT_EQ(Count(s, TopAbs_SOLID), 1);
        EXPECT_TRUE(BRepCheck_Analyzer(s).IsValid());
        EXPECT_NEAR(sibtest::Volume(s), volume, 1e-6 * volume);
        const std::vector<double> b = sibtest::Bounds(s);
        const double e[6] = {lo.X(), lo.Y(), lo.Z(), hi.X(), hi.Y(), hi.Z()};
        const double tol = 1e-6 * lo.Distance(hi);
        for (int i = 0; i < 6; ++i) EXPECT_NEAR(b[i], e[i], tol) << "bound " << i;
        return s;
    }

    // Pixels of a rubber band's colour in the rendered image within 4 pixels of where `p` is
    // drawn. The red band (1, 0.2, 0.2) at opacity 0.6 keeps red well above green and blue over
    // any part of the background; the green band (0, 0.9, 0.2) at 0.8 is bright green with little
    // red or blue, unlike the dark green grid lines and the steel-blue solids.
    int BandPixelsAt(const QImage& img, const gp_Pnt& p, Band band)
    {
        const double r = viewer->devicePixelRatioF();
        const QPoint c = WorldToWidget(viewer.get(), p) * r;
        int n = 0;
        for (int y = c.y() - 4; y <= c.y() + 4; ++y)
            for (int x = c.x() - 4; x <= c.x() + 4; ++x) {
                if (!img.valid(x, y)) continue;
                const QColor q = img.pixelColor(x, y);
                const bool red = q.red() > 140 && q.red() > q.green() + 30 && q.red() > q.blue() + 30;
                const bool green = q.green() > 170 && q.red() < 110 && q.blue() < 130;
                if (band == Band::Red ? red : green) ++n;
            }
        return n;
    }
    // Whether the band shows at every one of `points` in a freshly grabbed image.
    bool BandShownAt(const std::vector<gp_Pnt>& points, Band band)
    {
        const QImage img = GrabRendered(viewer.get());
        for (const gp_Pnt& p : points)
            if (BandPixelsAt(img, p, band) == 0) return false;
        return true;
    }
    // Whether the band shows at none of `points`. The selection, which the click that made the
    // solid may have picked, is emptied first: its highlight is reddish as well.
    bool BandGoneAt(const std::vector<gp_Pnt>& points, Band band)
    {
        SelectionMgr::GetInstance()->ClearSelList();
        viewer->ProcessHighLightedObj();
        const QImage img = GrabRendered(viewer.get());
        for (const gp_Pnt& p : points)
            if (BandPixelsAt(img, p, band) != 0) return false;
        return true;
    }

    DialogSeen dialog;
    QPointer<QTimer> pendingAnswer;
};

}  // namespace tevtest

#endif
