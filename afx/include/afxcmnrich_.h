// afxcmnrich_.h: the rich edit control (CRichEditCtrl); included by afxcmn.h.
#ifndef AFXCMNRICH__H
#define AFXCMNRICH__H

#endif // AFXCMNRICH__H
