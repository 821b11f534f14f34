// vrk_ddx.cpp - data exchange of single flag bits with check boxes.
#include "vrk_dialogs.h"

void AFXAPI VDDX_CheckBit(CDataExchange* pDX, int nIDC, DWORD& dwFlags, DWORD dwBit) {
  HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    if (::SendMessage(hWndCtrl, BM_GETCHECK, 0, 0) == BST_CHECKED)
      dwFlags |= dwBit;
    else
      dwFlags &= ~dwBit;
  } else {
    ::SendMessage(hWndCtrl, BM_SETCHECK, (dwFlags & dwBit) ? BST_CHECKED : BST_UNCHECKED, 0);
  }
}
