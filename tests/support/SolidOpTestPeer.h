// SolidOpTestPeer: how tests read the internals of the solid primitive operations (their step
// flags and the values their dialogs gave). These are not the host's interface, so they live
// here, as a friend of those classes, rather than on the exported ones.
#ifndef SOLIDOPTESTPEER_H
#define SOLIDOPTESTPEER_H

#include "DrawBoxOp.h"
#include "DrawConeOp.h"
#include "DrawCylinderOp.h"
#include "DrawSphereOp.h"
#include "DrawTorusOp.h"
#include "DrawTruncatedConeOp.h"
#include "DrawWedgeOp.h"

#include <array>

class SolidOpTestPeer
{
public:
    // The first two step flags of any of the seven.
    template <class Op>
    static std::array<bool, 2> Steps(const Op& op)
    {
        return {op.m_bStep1, op.m_bStep2};
    }
    template <class Op>
    static bool ParamInput(const Op& op)
    {
        return op.m_bParamInput;
    }
    static bool Step3(const DrawBoxOp& op) { return op.m_bStep3; }
    static bool Step3(const DrawWedgeOp& op) { return op.m_bStep3; }
    static double Height(const DrawBoxOp& op) { return op.m_Height; }
    static double Height(const DrawWedgeOp& op) { return op.m_WedgeHeight; }
    static std::array<double, 4> WedgeParam(const DrawWedgeOp& op)
    {
        return {op.m_WedgeParam[0], op.m_WedgeParam[1], op.m_WedgeParam[2], op.m_WedgeParam[3]};
    }
    static double Angle(const DrawCylinderOp& op) { return op.m_Angle; }
    static double Angle(const DrawConeOp& op) { return op.m_Angle; }
    static double Angle(const DrawTruncatedConeOp& op) { return op.m_Angle; }
    static double TopRadius(const DrawTruncatedConeOp& op) { return op.m_TopRadius; }
    static std::array<double, 3> Angles(const DrawSphereOp& op) { return {op.m_Angle1, op.m_Angle2, op.m_Angle3}; }
    static std::array<double, 3> Angles(const DrawTorusOp& op) { return {op.m_Angle1, op.m_Angle2, op.m_Angle3}; }
    static double SweepRadius(const DrawTorusOp& op) { return op.m_SweepRadius; }
    static gp_Pnt Point1(const DrawSphereOp& op) { return op.m_Point1; }
};

#endif
