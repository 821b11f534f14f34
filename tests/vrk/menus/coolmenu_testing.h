// Ids of the owner-drawn menu tests and their resources. The resource
// compiler reads this file too: it sees only the #defines.
#ifndef VRK_TESTS_COOLMENU_TESTING_H
#define VRK_TESTS_COOLMENU_TESTING_H

#define IDR_COOLFRAME 0x0400
#define IDR_CONTEXT 0x0401
#define IDR_TB_MAIN 0x0410          // 16x15, Visual C++ layout
#define IDR_TB_SECOND 0x0411        // 16x15, windres layout, repeats a command
#define IDR_TB_BIG 0x0412           // 24x24
#define IDR_TB_TRUNCATED 0x0413     // counts more ids than it holds
#define IDR_TB_TRUNCATED_GNU 0x0414 // the same in the windres layout
#define IDR_TB_NOBITMAP 0x0415
#define IDR_TB_EMPTY 0x0416 // a bitmap 0 pixels wide

#define ID_FILE_NEW 0xE100
#define ID_FILE_OPEN 0xE101
#define ID_EDIT_COPY 0xE122
#define ID_PLAIN 0x8301
#define ID_TOOL_X 0x8302
#define ID_TOOL_Y 0x8303
#define ID_TOOL_Z 0x8304
#define ID_APPLE 0x8311
#define ID_BANANA 0x8312
#define ID_AVOCADO 0x8313
#define ID_CHERRY 0x8314

#endif
