/* The same program without the library: what it costs to start and to end a process. */
int main(void)
{
    return 0;
}
