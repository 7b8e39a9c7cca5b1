/* Needs a function of each kind. */
int GetACP(void);
int GetTickCount(void);
int RegCloseKey(void*);
unsigned char* _mbsrev(unsigned char*);
int CreateFileA(const char*);
int setPlatformServices(void*) __asm__("_Z19setPlatformServicesP17IPlatformServices");
int copyRect(void*, const void*) __asm__("_Z8CopyRectP7tagRECTPKS_");
int ownFunction(void);
int puts(const char*);

int useEverything(void)
{
    return GetACP() + GetTickCount() + RegCloseKey(0) + (_mbsrev(0) != 0) + CreateFileA("") + setPlatformServices(0) +
           copyRect(0, 0) + ownFunction() + puts("");
}
