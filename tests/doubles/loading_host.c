/* A host that loads the library itself. Its arguments are steps, carried out in order:
 *   open=FILE    loads it
 *   name         names the host
 *   get          asks for the style of the catalogue's first quantity: the query's result
 *   edit         opens the editor: its result
 *   close        unloads it
 *   mapped       which libraries of windows, and which of the style atlas, are in the process
 *   late         has every function called once more when the program ends, after the library's objects have
 * gone */
#include <include/styleatlas.h>

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void* library;

/* As a program does that has looked the function up. */
static void* Find(const char* name)
{
    void* const found = dlsym(library, name);
    if (found == NULL) {
        printf("no %s\n", name);
        exit(EXIT_FAILURE);
    }
    return found;
}

static void (*setApplication)(const char16_t*);
static void (*reload)(void);
static void (*changeUser)(const char16_t*, const char16_t*);
static int (*edit)(uintptr_t);
static int (*get)(int16_t, uint16_t, uint8_t, uint8_t, uint16_t, uint32_t, uint32_t*, int16_t*, int16_t*,
                  int16_t*, uint32_t*, int16_t*, int16_t*, uint8_t*);

static void Open(const char* file)
{
    library = dlopen(file, RTLD_NOW);
    if (library == NULL) {
        puts(dlerror());
        exit(EXIT_FAILURE);
    }
    *(void**)&setApplication = Find("StyleAtlasSetApplication");
    *(void**)&reload = Find("ReloadStyleAtlas");
    *(void**)&changeUser = Find("StyleAtlasChangeUserInfo");
    *(void**)&edit = Find("EditStyleAtlas");
    *(void**)&get = Find("GetStyleAtlas");
}

static int Get(void)
{
    uint32_t color = 0;
    int16_t number = 0;
    uint8_t flag = 0;
    return get(0, 20, 1, 0, 1, 0, &color, &number, &number, &number, &color, &number, &number, &flag);
}

static void CallLate(void)
{
    setApplication(u"Late");
    reload();
    changeUser(u"S-1", u"Software");
    printf("late: %d %d\n", Get(), edit(0));
    fflush(stdout);
}

static void ShowMapped(void)
{
    static const char* const names[] = {"libQt6", "libstyleatlas.", "libstyleatlas-core",
                                        "libstyleatlas-editor"};
    FILE* const maps = fopen("/proc/self/maps", "r");
    char line[4096];
    int found[4] = {0};
    while (maps != NULL && fgets(line, sizeof line, maps) != NULL) {
        for (int i = 0; i < 4; ++i)
            found[i] |= strstr(line, names[i]) != NULL;
    }
    if (maps != NULL)
        fclose(maps);
    printf("mapped:");
    for (int i = 0; i < 4; ++i) {
        if (found[i])
            printf(" %s", names[i]);
    }
    printf("\n");
}

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const char* const step = argv[i];
        if (strncmp(step, "open=", 5) == 0)
            Open(step + 5);
        else if (strcmp(step, "name") == 0)
            setApplication(u"Bench");
        else if (strcmp(step, "get") == 0)
            printf("get: %d\n", Get());
        else if (strcmp(step, "edit") == 0)
            printf("edit: %d\n", edit(0));
        else if (strcmp(step, "close") == 0)
            dlclose(library);
        else if (strcmp(step, "mapped") == 0)
            ShowMapped();
        else if (strcmp(step, "late") == 0)
            atexit(CallLate); /* before "open", to run after the library's objects are destroyed */
        else
            return EXIT_FAILURE;
        fflush(stdout);
    }
    return EXIT_SUCCESS;
}
