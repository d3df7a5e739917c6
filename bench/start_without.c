/* The same program without the library: the cost of starting and ending a process. */
#include <stdio.h>

int main(void)
{
    puts("");
    fflush(stdout);
    getchar();
    return 0;
}
