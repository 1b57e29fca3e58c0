#include "RecordingOp.h"

#include "DrawOpMgr.h"

bool RecordingOp::Record(const char* name, int type, const double* point)
{
    Call call{name, type, {0, 0, 0}};
    if (point) call.point = {point[0], point[1], point[2]};
    calls.push_back(call);
    if (sharedLog) sharedLog->push_back(m_tag + ":" + name);
    return returnValue;
}

void RecordingOp::InitAction(TevBasicViewer* viewer)
{
    Record("InitAction", 0, nullptr);
    if (finishOnInit) m_bFinished = true;
    if (childToStart) DrawOpMgr::GetInstance()->StartChildOp(childToStart, viewer);
}

void RecordingOp::ActionCancelled(TevBasicViewer* viewer)
{
    Record("ActionCancelled", 0, nullptr);
    DrawOpCommon::ActionCancelled(viewer);
}

bool RecordingOp::LButtonDown(TevBasicViewer*, const double p[3]) { return Record("LButtonDown", 2, p); }

bool RecordingOp::LButtonUp(TevBasicViewer*, const double p[3])
{
    if (rubberBand && !m_hasFirst) {
        m_hasFirst = true;
        m_first[0] = p[0];
        m_first[1] = p[1];
        m_first[2] = p[2];
    }
    return Record("LButtonUp", 3, p);
}

bool RecordingOp::LButtonDoubleClick(TevBasicViewer*, const double p[3]) { return Record("LButtonDoubleClick", 4, p); }
bool RecordingOp::RButtonDown(TevBasicViewer*, const double p[3]) { return Record("RButtonDown", 5, p); }
bool RecordingOp::RButtonUp(TevBasicViewer*, const double p[3]) { return Record("RButtonUp", 6, p); }

bool RecordingOp::MovePoint(TevBasicViewer* viewer, const double p[3])
{
    if (rubberBand && m_hasFirst) {
        double current[3] = {p[0], p[1], p[2]};
        DrawTempLine(viewer, m_first, current);
    }
    return Record("MovePoint", 1, p);
}

void RecordingOp::ChildActionFinished(TevBasicViewer*)
{
    Record("ChildActionFinished", 0, nullptr);
    if (finishOnChild) m_bFinished = true;
}

void RecordingOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    Record("FinishCurrentOp", 0, nullptr);
    DrawOpCommon::FinishCurrentOp(viewer);
}

std::vector<std::string> RecordingOp::Names() const
{
    std::vector<std::string> names;
    for (const Call& c : calls) names.push_back(c.name);
    return names;
}

int RecordingOp::CountOf(const std::string& name) const
{
    int n = 0;
    for (const Call& c : calls) n += (c.name == name);
    return n;
}
