#include "TevPreference.h"

TevPreference* TevPreference::m_Instance = nullptr;

TevPreference* TevPreference::GetInstance()
{
    if (!m_Instance) m_Instance = new TevPreference();
    return m_Instance;
}

void TevPreference::Reset()
{
    *this = TevPreference();
}
