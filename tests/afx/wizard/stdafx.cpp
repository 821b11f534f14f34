// stdafx.cpp : source file that includes just the standard includes
#include "stdafx.h"
