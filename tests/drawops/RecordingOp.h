// RecordingOp: a real drawing operation for tests. It logs every call it receives, with the
// world point of mouse entries, and can be told to start a child, to report itself finished, and
// to draw a rubber band from its first point on every move.
#ifndef RECORDINGOP_H
#define RECORDINGOP_H

#include "DrawOpCommon.h"

#include <array>
#include <string>
#include <vector>

class RecordingOp : public DrawOpCommon
{
public:
    struct Call {
        std::string name;
        int type;  // DrawOpMgr's mouse event type for mouse entries, 0 otherwise
        std::array<double, 3> point;
    };

    explicit RecordingOp(std::string tag = "op") : m_tag(std::move(tag)) {}

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonDown(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonDoubleClick(TevBasicViewer* viewer, const double point[3]) override;
    bool RButtonDown(TevBasicViewer* viewer, const double point[3]) override;
    bool RButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void ChildActionFinished(TevBasicViewer* viewer) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

    // Names of the calls received, in order ("MovePoint", "FinishCurrentOp", ...).
    std::vector<std::string> Names() const;
    int CountOf(const std::string& name) const;

    std::vector<Call> calls;
    std::vector<std::string>* sharedLog = nullptr;  // "tag:name" lines shared by several ops
    IDrawOp* childToStart = nullptr;                // started by InitAction
    bool finishOnInit = false;                      // m_bFinished set by InitAction
    bool finishOnChild = false;                     // m_bFinished set by ChildActionFinished
    bool rubberBand = false;                        // first click fixes a point, moves draw a line
    bool returnValue = true;

    void SetFinished(bool finished) { m_bFinished = finished; }
    void ShowLine(TevBasicViewer* v, double* a, double* b) { DrawTempLine(v, a, b); }
    void ShowCircle(TevBasicViewer* v, double* c, double* r) { DrawTempCircle(v, c, r); }
    void ShowTriangle(TevBasicViewer* v, double* a, double* b, double* c) { DrawTempTriangle(v, a, b, c); }
    using DrawOpCommon::CreateInTransaction;

private:
    bool Record(const char* name, int type, const double* point);
    std::string m_tag;
    bool m_hasFirst = false;
    double m_first[3] = {0, 0, 0};
};

#endif
