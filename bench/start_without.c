/* The same program without the library: what it costs to start and to end a process. */
#include <stdio.h>

int main(void)
{
    puts("");
    fflush(stdout);
    getchar();
    return 0;
}
