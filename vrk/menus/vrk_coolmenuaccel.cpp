// VCoolMenuManager: its copy of the frame's accelerator table and the
// accelerator texts of a command.
#include "vrk_coolmenu.h"

#include "resource.h"

tagACCEL* VCoolMenuManager::GetAccel(WORD nID) {
  void* p = NULL;
  return m_mapAccel.Lookup(nID, p) ? static_cast<ACCEL*>(p) : NULL;
}

void VCoolMenuManager::DestroyAccel() {
  m_mapAccel.RemoveAll();
  delete[] m_pAccelTable;
  m_pAccelTable = NULL;
  m_nAccelCount = 0;
}

// Each entry's command becomes the distance back to the previous entry of
// the same command (0 for its first); the map holds each command's last.
void VCoolMenuManager::LoadAccel(HACCEL hAccel) {
  DestroyAccel();
  if (hAccel == NULL) return;
  int nCount = ::CopyAcceleratorTable(hAccel, NULL, 0);
  if (nCount <= 0) return;
  m_pAccelTable = new ACCEL[nCount];
  m_nAccelCount = ::CopyAcceleratorTable(hAccel, m_pAccelTable, nCount);
  for (int i = 0; i < m_nAccelCount; i++) {
    ACCEL* pEntry = &m_pAccelTable[i];
    ACCEL* pPrevious = GetAccel(pEntry->cmd);
    m_mapAccel.SetAt(pEntry->cmd, pEntry);
    pEntry->cmd = pPrevious != NULL ? (WORD)(pEntry - pPrevious) : 0;
  }
}

BOOL VCoolMenuManager::AppendAccelName(CString& strText, UINT nID) {
  int nTab = strText.Find('\t');
  if (nTab > 0) strText = strText.Left(nTab);
  ACCEL* pEntry = GetAccel((WORD)nID);
  if (pEntry == NULL) return FALSE;
  CString strAlt, strCtrl, strShift;
  strAlt.LoadString(IDS_VRK_KEY_ALT);
  strCtrl.LoadString(IDS_VRK_KEY_CTRL);
  strShift.LoadString(IDS_VRK_KEY_SHIFT);
  for (BOOL bFirst = TRUE;; bFirst = FALSE) {
    strText += bFirst ? "\t" : ", ";
    if (pEntry->fVirt & FALT) strText += strAlt;
    if (pEntry->fVirt & FCONTROL) strText += strCtrl;
    if (pEntry->fVirt & FSHIFT) strText += strShift;
    if (pEntry->fVirt & FVIRTKEY) {
      char szKey[64];
      szKey[0] = 0;
      ::GetKeyNameTextA((LONG)(::MapVirtualKeyA(pEntry->key, 0) << 16), szKey, sizeof(szKey));
      strText += szKey;
    } else {
      strText += (char)pEntry->key;
    }
    // The walk stays inside the table even if an entry were damaged.
    if (pEntry->cmd == 0 || pEntry->cmd > pEntry - m_pAccelTable) break;
    pEntry -= pEntry->cmd;
  }
  return TRUE;
}
