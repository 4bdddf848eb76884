"""A modem without hardware: answers the commands that ModemManager sends down the serial line of a plain GSM modem."""

import re
import socket
import threading

# ModemManager takes an abstract socket with this name for a serial port.
LINE = "abstract:port0"

REGISTRATIONS = {"idle": 0, "home": 1, "searching": 2, "denied": 3, "roaming": 5}
BEST_SIGNAL = 31
NO_SIGNAL = 99
SIGNALS = tuple(str(strength) for strength in (*range(BEST_SIGNAL + 1), NO_SIGNAL))
CODE = "1234"

CODE_NEEDED = "+CME ERROR: 11"
WRONG_CODE = "+CME ERROR: 16"
# What a modem says of a card that is of no use to it.
USELESS = {"missing": "+CME ERROR: 10", "broken": "+CME ERROR: 13", "wrong": "+CME ERROR: 15"}
CARDS = ("ready", "locked", *USELESS)

FIXED = {
    "+GCAP": "+GCAP: +CGSM",
    "+CGMI": "Sandbox",
    "+CGMM": "Modem without hardware",
    "+CGMR": "1",
    "+CGSN": "490154203237518",
    "+WS46=?": "+WS46: (12,22,25,28)",
    "+CFUN?": "+CFUN: 1",
    "+CLCK=?": '+CLCK: ("SC","FD")',
    '+CLCK="SC",2': "+CLCK: 0",
    '+CLCK="FD",2': "+CLCK: 0",
    "+CSCS=?": '+CSCS: ("IRA","UCS2","GSM")',
    "+CSCS?": '+CSCS: "IRA"',
    "+CGDCONT=?": '+CGDCONT: (1-11),"IP",,,(0,1),(0,1)',
    "+CGDCONT?": "",
    "+CMGF=?": "+CMGF: (0,1)",
    "+CPMS=?": '+CPMS: ("SM"),("SM"),("SM")',
    "+CMER=?": "+CMER: (0-3),(0),(0),(0-1),(0)",
    "+CIND=?": '+CIND: ("signal",(0-5)),("service",(0,1))',
}
# Needs a card that may be used.
ON_THE_CARD = {
    "+CIMI": "001010123456789",
    "+CCID": "+CCID: 8900101012345678901",
    "+CNUM": '+CNUM: "","+999123456",145',
}
# The operator by name and by number, and how is said which is wanted.
OPERATOR = {"0": "Sandbox", "2": "00101"}
NAMINGS = {f"+COPS=3,{naming}": naming for naming in OPERATOR}
# What is switched or set without anything to follow from it.
ACCEPTED = re.compile(r"[EVXZ&].*|\+(CMEE|CREG|CGREG|CFUN|COPS|CSCS|CMGF|CPMS|CNMI|CMER|CRC|IFC)=.*|")


class AtModem:
    """Its state is changed from one thread and told in another: each change is a single assignment."""

    def __init__(self, log):
        self._log = log
        self._registration = "home"
        self._signal = 20
        self._card = "ready"
        self._naming = "2"
        self._line = None
        # Bound before anybody looks for it.
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.bind(f"\0{LINE}")
        self._socket.listen()

    def switch_on(self):
        threading.Thread(target=self._accept, daemon=True).start()

    def set_registration(self, name):
        """Tells it by itself, as a modem does that loses its network."""
        self._registration = name
        for kind in ("CREG", "CGREG"):
            self._tell(f"+{kind}: {self._place()}")

    def set_signal(self, strength):
        self._signal = strength
        self._tell(f"+CIEV: 1,{self._bars()}")

    def set_card(self, state):
        """Is seen when the modem is probed again."""
        self._card = state

    def answer(self, command):
        """The lines that follow a command, without its "AT"."""
        if command == "+CPIN?":
            if self._card in USELESS:
                return [USELESS[self._card]]
            return ["+CPIN: SIM PIN" if self._card == "locked" else "+CPIN: READY", "OK"]
        if command.startswith("+CPIN="):
            return self._unlock(command)
        if command in NAMINGS:
            self._naming = NAMINGS[command]
        if command in ON_THE_CARD and self._card != "ready":
            return [USELESS.get(self._card, CODE_NEEDED)]
        told = {**FIXED, **ON_THE_CARD, **self._live()}.get(command)
        if told is not None:
            return [*told.splitlines(), "OK"]
        return ["OK" if ACCEPTED.fullmatch(command) else "ERROR"]

    def _unlock(self, command):
        if command != f'+CPIN="{CODE}"':
            return [WRONG_CODE]
        self._card = "ready"
        return ["OK"]

    def _live(self):
        registered = self._registration in ("home", "roaming")
        return {
            "+CREG?": f"+CREG: 2,{self._place()}",
            "+CGREG?": f"+CGREG: 2,{self._place()}",
            "+CSQ": f"+CSQ: {self._signal},99",
            "+CIND?": f"+CIND: {self._bars()},{int(registered)}",
            "+COPS?": f'+COPS: 0,{self._naming},"{OPERATOR[self._naming]}"' if registered else "+COPS: 0",
        }

    def _place(self):
        cell = ',"00AA","00BB"' if self._registration in ("home", "roaming") else ""
        return f"{REGISTRATIONS[self._registration]}{cell}"

    def _bars(self):
        return 0 if self._signal == NO_SIGNAL else round(5 * self._signal / BEST_SIGNAL)

    def _tell(self, line):
        if self._line:
            self._say(self._line, line)

    def _accept(self):
        while True:
            line, _ = self._socket.accept()
            threading.Thread(target=self._serve, args=(line,), daemon=True).start()

    def _serve(self, line):
        self._line = line
        with line, line.makefile(encoding="ascii", errors="replace", newline="\r") as commands:
            for command in commands:
                command = command.strip()
                if command.startswith("AT"):
                    lines = self.answer(command.removeprefix("AT"))
                    self._log.write(f"{command} -> {' | '.join(lines)}\n")
                    self._log.flush()
                    for said in lines:
                        self._say(line, said)

    @staticmethod
    def _say(line, text):
        # Nobody may be listening any more: that is for the one to find out who hung up.
        try:
            line.sendall(f"\r\n{text}\r\n".encode("ascii"))
        except OSError:
            pass
