__attribute__((visibility("default"))) int cameraDriverVersion();

int cameraDriverVersion()
{
    return 3;
}
