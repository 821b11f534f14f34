#ifndef AFXEXC_H
#define AFXEXC_H

#endif
