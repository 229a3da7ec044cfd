// The messages that the engine sends: every method that it calls on a node, a parent, a child, a
// target or an action, and that a script may therefore override.
#pragma once

#include "engine/host/dispatch.hpp"

namespace tessora::message {

using host::Message;

inline const Message AddChild{"AddChild"};
inline const Message CallInnerEvent{"CallInnerEvent"};
inline const Message GetAllChildrens{"GetAllChildrens"};
inline const Message GetInstanceID{"GetInstanceID"};
inline const Message GetSceneInstance{"GetSceneInstance"};
inline const Message GetSortIndex{"GetSortIndex"};
inline const Message OnDestroy{"OnDestroy"};
inline const Message OnLoad{"OnLoad"};
inline const Message RemoveAllChildren{"RemoveAllChildren"};
inline const Message SetInstanceID{"SetInstanceID"};
inline const Message SetSortIndex{"SetSortIndex"};

inline const Message GetAXW{"GetAXW"};
inline const Message GetAYH{"GetAYH"};
inline const Message GetWX{"GetWX"};
inline const Message GetWY{"GetWY"};
inline const Message GetWPX{"GetWPX"};
inline const Message GetWPY{"GetWPY"};
inline const Message GetWSX{"GetWSX"};
inline const Message GetWSY{"GetWSY"};
inline const Message GetWPSX{"GetWPSX"};
inline const Message GetWPSY{"GetWPSY"};
inline const Message GetWAngle{"GetWAngle"};
inline const Message GetWPAngle{"GetWPAngle"};
inline const Message GetLeft{"GetLeft"};
inline const Message GetTop{"GetTop"};
inline const Message GetRight{"GetRight"};
inline const Message GetBottom{"GetBottom"};
inline const Message GetCenterX{"GetCenterX"};
inline const Message GetCenterY{"GetCenterY"};
inline const Message GetSizeRect{"GetSizeRect"};

inline const Message GetAngle{"GetAngle"};
inline const Message GetSX{"GetSX"};
inline const Message GetSY{"GetSY"};
inline const Message GetX{"GetX"};
inline const Message GetY{"GetY"};
inline const Message IsVisible{"IsVisible"};
inline const Message SetAngle{"SetAngle"};
inline const Message SetAXY{"SetAXY"};
inline const Message SetHeight{"SetHeight"};
inline const Message SetSXY{"SetSXY"};
inline const Message SetVisible{"SetVisible"};
inline const Message SetWidth{"SetWidth"};
inline const Message SetX{"SetX"};
inline const Message SetY{"SetY"};
inline const Message SetXY{"SetXY"};

inline const Message draw{"draw"};
inline const Message draw_begin{"draw_begin"};
inline const Message draw_children{"draw_children"};
inline const Message drawAnchor{"drawAnchor"};
inline const Message drawDragRect{"drawDragRect"};
inline const Message drawsize{"drawsize"};
inline const Message update{"update"};

inline const Message checkCollision{"checkCollision"};
inline const Message checkDragRect{"checkDragRect"};
inline const Message checkEventRectCollision{"checkEventRectCollision"};
inline const Message OnEditRectDraging{"OnEditRectDraging"};
inline const Message OnKeyDownFunction{"OnKeyDownFunction"};
inline const Message OnKeyUpFunction{"OnKeyUpFunction"};
inline const Message OnPickDownFunction{"OnPickDownFunction"};
inline const Message OnPickUpFunction{"OnPickUpFunction"};

inline const Message AddActions{"AddActions"};
inline const Message CleanUp{"CleanUp"};
inline const Message IsOver{"IsOver"};
inline const Message Run{"Run"};
inline const Message SetTarget{"SetTarget"};

}  // namespace tessora::message
