extern "C" int definedNowhere();

extern "C" __attribute__((visibility("default"))) int Answer()
{
    return definedNowhere();
}
