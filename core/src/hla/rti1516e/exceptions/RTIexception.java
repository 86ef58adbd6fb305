package hla.rti1516e.exceptions;

/** What every failure of a service has in common: a text that tells what is wrong and what to do. */
public abstract class RTIexception extends Exception {
    private static final long serialVersionUID = 1L;

    protected RTIexception(String message) {
        super(message);
    }
}
