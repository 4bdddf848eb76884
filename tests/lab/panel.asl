// What the firmware of a device with a backlight tells of its display, beside the emulated adapter in slot 16: the levels,
// and methods to set and to ask.
DefinitionBlock ("", "SSDT", 2, "PANEL", "LAB", 1)
{
    External (\_SB.PCI0.S80, DeviceObj)

    Scope (\_SB.PCI0.S80)
    {
        Method (_DOS, 1)
        {
        }

        Method (_DOD, 0)
        {
            Return (Package () { 0x80000400 })
        }

        Device (LCD)
        {
            Name (_ADR, 0x0400)
            Name (LEVL, 60)

            // On mains and on battery, then all of them.
            Method (_BCL, 0)
            {
                Return (Package () { 100, 60, 5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100 })
            }

            Method (_BCM, 1)
            {
                LEVL = Arg0
            }

            Method (_BQC, 0)
            {
                Return (LEVL)
            }
        }
    }
}
