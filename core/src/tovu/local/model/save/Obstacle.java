package tovu.local.model.save;

import tovu.local.model.exchange.Exchange;

/** Why a save or a restore comes to nothing, for whoever runs the process: federates are only told that it does. */
final class Obstacle {
    private Obstacle() {
    }

    /** Names are anybody's: no terminal is to obey them. */
    static void tell(Exchange federation, String what, String reason) {
        System.err.println(("Federation '" + federation.name() + "' cannot be " + what + ": " + reason)
                .replaceAll("\\p{Cntrl}", "?"));
    }
}
