// vrk_coolmenu_priv.h - state the owner-drawn menu sources share.
#ifndef VRK_COOLMENU_PRIV_H
#define VRK_COOLMENU_PRIV_H

// The text buffer of a menu item (terminator included); longer texts are cut.
const int kCoolMenuTextMax = 256;

// Module-wide flags shared by all managers (user-interface thread only).
extern int g_bVrkCoolMenuRegisterButtons;
extern int g_bVrkCoolMenuContext;

#endif // VRK_COOLMENU_PRIV_H
