// TevPreference: the user's modelling preferences. The snap engine and the point picker read the
// five leading fields directly at every call, so a change takes effect at the next mouse event.
#ifndef TEVPREFERENCE_H
#define TEVPREFERENCE_H

class TevPreference
{
public:
    static TevPreference* GetInstance();

    bool snapEndPoint = true;   // vertices are snap candidates
    bool snapMiddle = true;     // edge mid-points are snap candidates
    bool snapGrid = true;       // grid points of the work plane are snap candidates
    bool snapOnLine = true;     // the point of an edge nearest to the view ray is a candidate
    bool pickOffPlane = false;  // keep the raw point instead of projecting it on the work plane

    // Returns every field to the defaults above.
    void Reset();

private:
    TevPreference() = default;
    static TevPreference* m_Instance;
};

#endif
