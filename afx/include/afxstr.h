#ifndef AFXSTR_H
#define AFXSTR_H

#endif
