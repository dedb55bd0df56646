extern "C" __attribute__((visibility("default"))) int makeCoffee()
{
    return 2;
}
