// A second folder: one change is noticed, one is not.
bool isOpenAt(int hour);

bool isOpenAt(int hour)
{
    return hour > 8;
}
