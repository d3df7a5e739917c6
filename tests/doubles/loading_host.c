/* A host in plain C that loads the library itself. Carries out its arguments in order: "open=FILE" and
 * "close" load and unload it; "name=TEXT", "user=ROOT|KEY", "reload" and "edit" call its functions, "edit"
 * printing the result; "get=COLUMN,QUANTITY,SUB,INDEX,DEVICE,FLAGS" prints that of GetStyleAtlas and the
 * eight values, which are 7 beforehand; "!COMMAND" is for the shell; "late", before "open", has every
 * function called once more when the program ends, after the library's objects have gone. */
#include <include/styleatlas.h>

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { maxText = 4096 };

static __typeof__(&StyleAtlasSetApplication) setApplication;
static __typeof__(&ReloadStyleAtlas) reload;
static __typeof__(&StyleAtlasChangeUserInfo) changeUser;
static __typeof__(&EditStyleAtlas) edit;
static __typeof__(&GetStyleAtlas) get;

static void* Open(const char* file)
{
    void* const library = dlopen(file, RTLD_NOW);
    if (library == NULL) {
        puts(dlerror());
        exit(EXIT_FAILURE);
    }
    *(void**)&setApplication = dlsym(library, "StyleAtlasSetApplication");
    *(void**)&reload = dlsym(library, "ReloadStyleAtlas");
    *(void**)&changeUser = dlsym(library, "StyleAtlasChangeUserInfo");
    *(void**)&edit = dlsym(library, "EditStyleAtlas");
    *(void**)&get = dlsym(library, "GetStyleAtlas");
    return library;
}

static const char16_t* Wide(const char* text, size_t length, char16_t* buffer)
{
    size_t i = 0;
    for (; i < length && i < maxText - 1; ++i)
        buffer[i] = (char16_t)text[i];
    buffer[i] = 0;
    return buffer;
}

static void Get(const char* text)
{
    unsigned n[6] = {0};
    (void)sscanf(text, "%u,%u,%u,%u,%u,%u", &n[0], &n[1], &n[2], &n[3], &n[4], &n[5]); /* NOLINT */
    uint32_t colors[2] = {7, 7};
    int16_t numbers[5] = {7, 7, 7, 7, 7};
    uint8_t flag = 7;
    const int found =
        get((int16_t)n[0], (uint16_t)n[1], (uint8_t)n[2], (uint8_t)n[3], (uint16_t)n[4], n[5], &colors[0],
            &numbers[0], &numbers[1], &numbers[2], &colors[1], &numbers[3], &numbers[4], &flag);
    printf("%d: %06X %d %d %d %06X %d %d %d\n", found, (unsigned)colors[0], numbers[0], numbers[1],
           numbers[2], (unsigned)colors[1], numbers[3], numbers[4], flag);
}

static void CallLate(void)
{
    setApplication(u"Late");
    reload();
    changeUser(u"S-1", u"Software");
    Get("0,20,1,0,1,0");
    printf("late: %d\n", edit(0));
    fflush(stdout);
}

int main(int argc, char** argv)
{
    static char16_t first[maxText];
    static char16_t second[maxText];
    void* library = NULL;
    for (int i = 1; i < argc; ++i) {
        const char* const step = argv[i];
        const char* const rest = step + 5;
        if (strncmp(step, "open=", 5) == 0)
            library = Open(rest);
        else if (strcmp(step, "close") == 0)
            dlclose(library);
        else if (strncmp(step, "name=", 5) == 0)
            setApplication(Wide(rest, strlen(rest), first));
        else if (strncmp(step, "user=", 5) == 0) {
            const size_t length = strcspn(rest, "|");
            changeUser(Wide(rest, length, first), Wide(rest + length + 1, strlen(rest + length + 1), second));
        } else if (strcmp(step, "reload") == 0)
            reload();
        else if (strcmp(step, "edit") == 0)
            printf("edit: %d\n", edit(0));
        else if (strncmp(step, "get=", 4) == 0)
            Get(step + 4);
        else if (step[0] == '!')
            (void)!system(step + 1); /* NOLINT */
        else if (strcmp(step, "late") == 0)
            atexit(CallLate);
        else
            return EXIT_FAILURE;
        fflush(stdout);
    }
    return EXIT_SUCCESS;
}
