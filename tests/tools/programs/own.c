/* What the audited file needs beside Windows functions. */
int ownFunction(void);

int ownFunction(void)
{
    return 0;
}
