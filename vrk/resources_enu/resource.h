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

#endif // VRK_ENU_RESOURCE_H
