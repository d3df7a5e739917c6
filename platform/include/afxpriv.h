// The framework's file for saving a document: the old contents stay until the new ones are complete.
#pragma once

#include <afx.h>

struct stat;

// A CFile that, opened with modeCreate, writes beside the file that its path names and puts the new file in
// its place at Close, when every byte is on disk; the old one is then called NAME~, in place of what had that
// name. Until then, and after Abort, destruction or the end of the process, the old file stands as it was.
// Symbolic links are followed, but for those that somebody else laid into a folder that all can write, and
// owner and permissions stay. Where that can't be, since the folder takes no new file, or the file has other
// names or an owner or access list that a new one can't have, the file itself is overwritten at Close, when
// every byte is there; what stood there is put back if that fails. Devices are written directly.
class CMirrorFile : public CFile
{
public:
    CMirrorFile() = default;
    ~CMirrorFile() override; // aborts

    // With modeCreate: false, and nothing else, for a name that leads nowhere, such as one in a folder that
    // doesn't exist. What is there but can't be written, and want of rights, room or descriptors, raise the
    // file exception.
    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags) override;
    // What is written goes to the system in large pieces: what it can't write is told by this, a later Write,
    // or Close.
    void Write(const void* lpBuf, UINT nCount) override;
    void Close() override;
    void Abort() override;

private:
    bool OpenForCreation(const std::string& path);
    bool OpenMirror(const struct stat* pOld);
    bool OpenOver(int nFlags);
    bool Refuse(int error) const;
    void HandOver();
    int CloseMirror();

    std::string m_strTarget;     // native path of the file to replace
    std::string m_strMirrorName; // native path of the file beside it; empty when there is none
    std::string
        m_strContents; // written, but not handed to the system; all of it for a file that is overwritten
    bool m_bOverwrites = false;
};
