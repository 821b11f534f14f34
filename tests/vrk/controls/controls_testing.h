// Ids of the control tests, shared with their resources.
#ifndef VRK_TESTS_CONTROLS_TESTING_H
#define VRK_TESTS_CONTROLS_TESTING_H
#define IDR_MAINFRAME 0x0320
#define IDR_SHEET 0x0321
#define IDD_CELLS 0x0400
#define IDD_COMBOS 0x0401
#define IDC_FIRST 0x0410
#define IDC_SECOND 0x0411
#define IDC_BUTTON 0x0412
#define IDC_COMBO 0x0413
#define IDC_FACES 0x0414
#define IDC_SIZES 0x0415
#define IDC_COLOR 0x0416
#define ID_CHILDCMD 0x8301
#define ID_MAINCMD 0x8302
#endif
