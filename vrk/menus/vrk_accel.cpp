// Accelerator entries and keys as text: the modifiers, then the name the
// keyboard layout gives the key.
#include "vrk_accel.h"

namespace {

// Bit 24 of a key-name request: the extended key (the navigation keys rather
// than the keypad's).
const LPARAM kExtendedKey = 1 << 24;

// The keys named without the extended bit: F1 to F12, Escape, Enter,
// Backspace and Tab. Every other key gets it, letters and digits too (the
// layout names them the same either way).
bool IsPlainKey(WORD wKey) {
  return (wKey >= VK_F1 && wKey <= VK_F12) || wKey == VK_ESCAPE || wKey == VK_RETURN ||
         wKey == VK_BACK || wKey == VK_TAB;
}

} // namespace

int VrkAccelGetCount(HACCEL hAccel) {
  if (hAccel == NULL) return 0;
  return ::CopyAcceleratorTable(hAccel, NULL, 0);
}

BOOL VrkAccelToText(ACCEL* pAccel, CString& strText) {
  if (pAccel == NULL) return TRUE;
  if (pAccel->fVirt & FALT) strText += "Alt+";
  if (pAccel->fVirt & FCONTROL) strText += "Ctrl+";
  if (pAccel->fVirt & FSHIFT) strText += "Shift+";
  // Always read as a virtual key: the scan code in bits 16 to 23, 0x100 in
  // the low bits.
  UINT nScanCode = ::MapVirtualKey(pAccel->key, 0);
  LPARAM lKey = (LPARAM)((nScanCode & 0xFF) << 16) | 0x100;
  if (!IsPlainKey(pAccel->key)) lKey |= kExtendedKey;
  char szName[100] = "";
  ::GetKeyNameTextA((LONG)lKey, szName, sizeof(szName)); // at most 99 characters and the zero
  strText += szName;
  return TRUE;
}

int VrkKeyToText(UINT nKey, CString& strText, int nMode) {
  LONG lKey = 0;
  switch (nMode) {
  case 0: // a complete request
    lKey = (LONG)nKey;
    break;
  case 1: // a virtual key
    lKey = (LONG)(((::MapVirtualKey(nKey, 0) & 0xFF) << 16) | 1);
    break;
  case 2: // a scan code
    lKey = (LONG)(((nKey & 0xFF) << 16) | 1);
    break;
  }
  char szName[256] = "";
  ::GetKeyNameTextA(lKey, szName, sizeof(szName));
  strText = szName;
  return strText.GetLength();
}
