// The framework's file for safe saving.
#pragma once

#include <afx.h>

struct stat;

// A CFile that, opened with modeCreate, writes a new file beside the old one. Close syncs it to disk and
// renames it to the path; the old file is kept as NAME~. Before Close, and after Abort, destruction or the
// end of the process, the old file is unchanged. Symbolic links are followed, except other users' links in a
// folder that everyone can write; owner and permissions are kept. If the folder allows no new file, or the
// file has other hard links, or an owner or access list that a new file can't get, Close overwrites the file
// in place, with all its contents at hand, and restores the old contents on an error. Devices are written
// directly.
class CMirrorFile : public CFile
{
public:
    CMirrorFile() = default;
    ~CMirrorFile() override; // aborts

    // With modeCreate, returns false for a path at which no file can exist, such as one in a missing folder.
    // All other errors raise the file exception.
    BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags) override;
    // Buffered: an error is raised by this call, a later Write, or Close.
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

    std::string m_strTarget;     // native path of the old file
    std::string m_strMirrorName; // native path of the new file, or empty
    std::string m_strContents;   // written, but not yet to disk; everything if the file is overwritten
    bool m_bOverwrites = false;
};
