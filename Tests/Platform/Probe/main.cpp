int runProbe(int argc, char **argv);

int main(int argc, char **argv)
{
    return runProbe(argc, argv);
}
