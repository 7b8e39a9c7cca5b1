#include "kest/user_interface/text_shaping.h"

namespace
{

void fillInOrder(int* places, int count)
{
    for (int place = 0; places != nullptr && place < count; ++place)
    {
        places[place] = place;
    }
}

} // namespace

HRESULT ScriptItemize(const wchar_t* chars, int cChars, int cMaxItems, const void*, const void*, SCRIPT_ITEM* items,
                      int* cItems)
{
    if (chars == nullptr || cChars <= 0)
    {
        return S_OK;
    }
    if (cMaxItems < 2)
    {
        return E_OUTOFMEMORY;
    }
    *cItems = 1;
    items[0].iCharPos = 0;
    items[1].iCharPos = cChars;
    return S_OK;
}

HRESULT ScriptLayout(int cRuns, const BYTE*, int* visualToLogical, int* logicalToVisual)
{
    fillInOrder(visualToLogical, cRuns);
    fillInOrder(logicalToVisual, cRuns);
    return S_OK;
}
