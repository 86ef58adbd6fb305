package morva.tovu1516e;

/** By this class the library tells whether there is a core at all. */
public final class RtiFactoryImpl {
   private RtiFactoryImpl() {}
}
