// A viewer whose camera maps world to display exactly: looking down -Z at the origin with a
// parallel scale of a power of two over a 512 x 512 window, so that display coordinates of
// points with small integer coordinates are exact and pixel distances can be tested at their
// bounds.
#ifndef SNAPSCENE_H
#define SNAPSCENE_H

#include "ShapeDocMgr.h"
#include "TevPreference.h"
#include "ViewerFixture.h"

#include <vtkCamera.h>
#include <vtkRenderer.h>

namespace tevtest {

class SnapSceneTest : public ViewerTest
{
protected:
    void SetUp() override
    {
        ViewerTest::SetUp();
        viewer->resize(512, 512);
        QTest::qWait(30);
    }

    // World units per pixel: 1 for a scale of 256, 4 for 1024.
    void ExactCamera(double parallelScale = 256.0)
    {
        vtkCamera* cam = viewer->GetDefaultRender()->GetActiveCamera();
        cam->SetFocalPoint(0, 0, 0);
        cam->SetPosition(0, 0, 500);
        cam->SetViewUp(0, 1, 0);
        cam->ParallelProjectionOn();
        cam->SetParallelScale(parallelScale);
        viewer->GetDefaultRender()->ResetCameraClippingRange(-1000, 1000, -1000, 1000, -1000, 1000);
        ASSERT_EQ(viewer->GetDefaultRender()->GetSize()[0], 512);
        ASSERT_EQ(viewer->GetDefaultRender()->GetSize()[1], 512);
    }

    // The display position of a world point, as the snap engine computes it.
    void Display(double x, double y, double z, double out[2])
    {
        vtkRenderer* r = viewer->GetDefaultRender();
        r->SetWorldPoint(x, y, z, 1.0);
        r->WorldToDisplay();
        out[0] = r->GetDisplayPoint()[0];
        out[1] = r->GetDisplayPoint()[1];
    }
};

// The same with an empty document, the snap preferences at their defaults and the exact camera,
// the preferences reset again afterwards.
class SnapDocumentTest : public SnapSceneTest
{
protected:
    void SetUp() override
    {
        SnapSceneTest::SetUp();
        ShapeDocMgr::GetInstance()->NewDocument();
        TevPreference::GetInstance()->Reset();
        ExactCamera();
    }
    void TearDown() override
    {
        TevPreference::GetInstance()->Reset();
        SnapSceneTest::TearDown();
    }
};

}  // namespace tevtest

#endif
