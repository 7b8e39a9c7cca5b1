#ifdef EXPERIMENTAL
#include <experimental/filesystem>
#else
#include <filesystem>
#endif

int main()
{
}
