// The messages that the engine sends: every method that it calls on a node, a parent, a child, a
// target or an action, and that a script may therefore override.
#pragma once

#include "engine/object/dispatch.hpp"

namespace tessora::message {

using host::Message;

inline Message AddChild{"AddChild"};
inline Message CallInnerEvent{"CallInnerEvent"};
inline Message CopyTo{"CopyTo"};
inline Message GetAllChildrens{"GetAllChildrens"};
inline Message GetCharacterBindingVarArray{"GetCharacterBindingVarArray"};
inline Message GetInstanceID{"GetInstanceID"};
inline Message GetSceneInstance{"GetSceneInstance"};
inline Message GetSortIndex{"GetSortIndex"};
inline Message OnDestroy{"OnDestroy"};
inline Message OnLoad{"OnLoad"};
inline Message RemoveAllChildren{"RemoveAllChildren"};
inline Message RemoveChild{"RemoveChild"};
inline Message SetCharacterBindingVar{"SetCharacterBindingVar"};
inline Message SetInstanceID{"SetInstanceID"};
inline Message SetParent{"SetParent"};
inline Message SetSortIndex{"SetSortIndex"};

inline Message GetAXW{"GetAXW"};
inline Message GetAYH{"GetAYH"};
inline Message GetWX{"GetWX"};
inline Message GetWY{"GetWY"};
inline Message GetWPX{"GetWPX"};
inline Message GetWPY{"GetWPY"};
inline Message GetWSX{"GetWSX"};
inline Message GetWSY{"GetWSY"};
inline Message GetWPSX{"GetWPSX"};
inline Message GetWPSY{"GetWPSY"};
inline Message GetWAngle{"GetWAngle"};
inline Message GetWPAngle{"GetWPAngle"};
inline Message GetLeft{"GetLeft"};
inline Message GetTop{"GetTop"};
inline Message GetRight{"GetRight"};
inline Message GetBottom{"GetBottom"};
inline Message GetCenterX{"GetCenterX"};
inline Message GetCenterY{"GetCenterY"};
inline Message GetSizeRect{"GetSizeRect"};

inline Message GetAngle{"GetAngle"};
inline Message GetSX{"GetSX"};
inline Message GetSY{"GetSY"};
inline Message GetX{"GetX"};
inline Message GetY{"GetY"};
inline Message IsVisible{"IsVisible"};
inline Message SetAngle{"SetAngle"};
inline Message SetAXY{"SetAXY"};
inline Message SetHeight{"SetHeight"};
inline Message SetSX{"SetSX"};
inline Message SetSXY{"SetSXY"};
inline Message SetSY{"SetSY"};
inline Message SetVisible{"SetVisible"};
inline Message SetWidth{"SetWidth"};
inline Message SetX{"SetX"};
inline Message SetY{"SetY"};
inline Message SetXY{"SetXY"};

inline Message draw{"draw"};
inline Message draw_begin{"draw_begin"};
inline Message draw_children{"draw_children"};
inline Message drawAnchor{"drawAnchor"};
inline Message drawDragRect{"drawDragRect"};
inline Message drawsize{"drawsize"};
inline Message update{"update"};

inline Message checkCollision{"checkCollision"};
inline Message checkDragRect{"checkDragRect"};
inline Message checkEventRectCollision{"checkEventRectCollision"};
inline Message OnEditRectDraging{"OnEditRectDraging"};
inline Message OnKeyDownFunction{"OnKeyDownFunction"};
inline Message OnKeyUpFunction{"OnKeyUpFunction"};
inline Message OnPickDownFunction{"OnPickDownFunction"};
inline Message OnPickUpFunction{"OnPickUpFunction"};

inline Message AddActions{"AddActions"};
inline Message CleanUp{"CleanUp"};
inline Message IsOver{"IsOver"};
inline Message Run{"Run"};
inline Message SetTarget{"SetTarget"};

}  // namespace tessora::message
