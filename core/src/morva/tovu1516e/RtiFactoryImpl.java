package morva.tovu1516e;

/** The library looks for this class to tell whether the core is on the class path. */
public final class RtiFactoryImpl {
}
