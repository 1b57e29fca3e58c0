#include "PipeShapeParaCreator.h"

#include "ShapeLabelMgr.h"

#include <BRepOffsetAPI_MakePipe.hxx>
#include <GProp_GProps.hxx>
#include <BRepGProp.hxx>
#include <QObject>
#include <TopExp_Explorer.hxx>

TDF_Label PipeShapeParaCreator::CreatePipe(TopoDS_Wire& path, TopoDS_Shape& profile)
{
    static const char* const op = "CreatePipe";
    return Guarded(op, [&]() -> TDF_Label {
        if (path.IsNull()) return Fail(op, QObject::tr("there is no path"));
        if (profile.IsNull()) return Fail(op, QObject::tr("there is no profile"));
        if (TopExp_Explorer(profile, TopAbs_SOLID).More()) return Fail(op, QObject::tr("a solid cannot be swept"));
        if (!TopExp_Explorer(path, TopAbs_EDGE).More()) return Fail(op, QObject::tr("the path has no edge"));
        BRepOffsetAPI_MakePipe pipe(path, profile);
        pipe.Build();
        if (!pipe.IsDone() || !IsValidResult(pipe.Shape())) return Fail(op, QObject::tr("the sweep failed"));
        GProp_GProps props;
        BRepGProp::LinearProperties(path, props);
        return RegisterShape(pipe.Shape(), "Pipe",
                             {Param("PathLength", props.Mass()),
                              TextParam("Profile", ShapeLabelMgr::GetInstance()->GetShapeName(&profile))});
    });
}
