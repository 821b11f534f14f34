#include <afx.h>
#include <stdio.h>
int main() { printf("demo\n"); return 0; }
