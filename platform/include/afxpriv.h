// The framework's file for saving a document: the old contents stay until the new ones are complete.
#pragma once

#include <afx.h>

#include <vector>

struct stat;

// A CFile that, opened with modeCreate, writes beside the file that its path names and puts the new file in
// its place at Close, when every byte is on disk. Until then, and after Abort, destruction or the end of the
// process, the old file stands as it was. Symbolic links are followed, and the file's permissions stay. Where
// the folder refuses a new file but the file itself can be written, it is written directly; so are devices.
class CMirrorFile : public CFile
{
public:
    CMirrorFile() = default;
    ~CMirrorFile() override; // aborts

    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags) override;
    // What is written goes to the system in large pieces: what it can't write is told by this, a later Write,
    // Flush or Close.
    void Write(const void* lpBuf, UINT nCount) override;
    void Flush();
    void Close() override;
    void Abort() override;

private:
    bool OpenForCreation(const std::string& target);
    bool OpenMirror(const struct stat* pOld);

    std::vector<BYTE> m_gathered; // written, but not handed to the system
    std::string m_strTarget;      // native path of the file to replace
    std::string m_strFolder;      // of the target
    std::string m_strMirrorName;  // native path of the file beside it; empty when written directly
};
