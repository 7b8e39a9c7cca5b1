// A program that needs no library of ours.
int main()
{
    return 5;
}
