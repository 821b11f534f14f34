// resource.h - identifiers of the English resource module vrk_enu.dll. The
// numbers are part of the library's interface: every resource module of
// another language uses the same ones.
#ifndef VRK_ENU_RESOURCE_H
#define VRK_ENU_RESOURCE_H

#define IDS_VRK_FOLDER_TITLE 5000   // title of the folder dialog
#define IDS_VRK_INVALID_DATA 5002   // invalid-data template: file, line, MSG fields
#define IDS_VRK_FILE_NO_MEMORY 5003 // out of memory forming a file name or message
#define IDS_VRK_FILE_OPEN 5004      // a file could not be opened
#define IDS_VRK_FILE_POSITION 5005  // rewind, position, move or size failed
#define IDS_VRK_FILE_UNKNOWN 5006   // default file error text
#define IDS_VRK_FILE_WRITE 5007     // a write failed
#define IDS_VRK_FILE_READ 5008      // a read failed or came short
#define IDS_VRK_FILE_NONE 5009      // an error with no file to name
#define IDS_VRK_KEY_ALT 5010        // modifier names of the keyboard map
#define IDS_VRK_KEY_CTRL 5011
#define IDS_VRK_KEY_SHIFT 5012
#define IDS_VRK_ERROR_CODE 5013  // the error-code line: the code
#define IDS_VRK_PRINT_START 5014 // a print job could not start
#define IDS_VRK_FILE_CLOSE 5015  // closing a file failed

// Drawing.
#define IDC_VRK_STOCK_CURSOR 5035 // stock cursor 1: a crosshair with an open centre

// Dialogs: the message box, the input, zoom and trace settings dialogs.
#define IDD_VRK_ZOOM 5002         // zoom percentage chooser
#define IDC_VRK_ZOOM_200 5004     // radio group, tab order 200, 100, 75, 50,
#define IDC_VRK_ZOOM_100 5005     // page width, whole page, 25, custom
#define IDC_VRK_ZOOM_75 5006
#define IDC_VRK_ZOOM_50 5007
#define IDC_VRK_ZOOM_25 5008
#define IDC_VRK_ZOOM_PAGEWIDTH 5009
#define IDC_VRK_ZOOM_WHOLEPAGE 5010
#define IDC_VRK_ZOOM_CUSTOM 5011
#define IDC_VRK_ZOOM_PERCENT 5012 // edit, buddy of the spin 5013
#define IDC_VRK_ZOOM_SPIN 5013
#define IDD_VRK_TRACE 5015        // trace settings
#define IDB_VRK_BROWSE 5016       // the browse button's bitmap
#define IDD_VRK_TRACEHELP 5018    // help on the trace settings
#define IDC_VRK_TRACE_ENABLE 5019
#define IDC_VRK_TRACE_FILENAME 5020
#define IDC_VRK_TRACE_BROWSE 5021
#define IDC_VRK_TRACE_PREFIX 5023
#define IDC_VRK_TRACE_WINDOW 5024
#define IDC_VRK_TRACE_SUFFIX 5025
#define IDC_VRK_TRACE_DELIMITER 5026
#define IDC_VRK_TRACE_VERBATIM 5027
#define IDC_VRK_TRACE_TIMINGS 5028
#define IDC_VRK_TRACE_CLOCKTIMES 5029
#define IDC_VRK_TRACE_MAXLENGTH 5030
#define IDD_VRK_INPUT 5033        // one-line input
#define IDC_VRK_INPUT_EDIT 5033
#define IDC_VRK_INPUT_PROMPT 5034
#define IDC_VRK_TRACE_CATEGORIES 5047
#define IDD_VRK_MSGBOX 5049       // the library's message box
#define IDC_VRK_MSGBOX_TEXT 5050
#define IDC_VRK_MSGBOX_ICON 5051

// The keyboard map's document template: its document string and menu.
#define IDR_VRK_KEYBOARDMAP 5800

#endif // VRK_ENU_RESOURCE_H
